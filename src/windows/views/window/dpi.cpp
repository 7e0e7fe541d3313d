#include "windows/views/window/dpi.h"

namespace kebu::windows {

namespace {

/// A function of user32.dll; null on a Windows that does not have it.
template <class Function>
Function find(const char* name) {
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

struct Functions {
  decltype(&::GetDpiForWindow) dpiForWindow = find<decltype(&::GetDpiForWindow)>("GetDpiForWindow");
  decltype(&::GetSystemMetricsForDpi) systemMetrics =
      find<decltype(&::GetSystemMetricsForDpi)>("GetSystemMetricsForDpi");
  decltype(&::SystemParametersInfoForDpi) systemParameters =
      find<decltype(&::SystemParametersInfoForDpi)>("SystemParametersInfoForDpi");
  decltype(&::GetWindowDpiAwarenessContext) contextOfWindow =
      find<decltype(&::GetWindowDpiAwarenessContext)>("GetWindowDpiAwarenessContext");
  decltype(&::SetThreadDpiAwarenessContext) setContext =
      find<decltype(&::SetThreadDpiAwarenessContext)>("SetThreadDpiAwarenessContext");
};

const Functions& functions() {
  static const Functions found;
  return found;
}

int systemDpi() {
  HDC const screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

DPI_AWARENESS_CONTEXT setContext(DPI_AWARENESS_CONTEXT context) {
  return functions().setContext ? functions().setContext(context) : nullptr;
}

}  // namespace

int dpiOf(HWND window) {
  const int dpi = functions().dpiForWindow && window
                      ? static_cast<int>(functions().dpiForWindow(window))
                      : systemDpi();
  return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

int systemMetric(int index, int dpi) {
  if (functions().systemMetrics) {
    return functions().systemMetrics(index, static_cast<UINT>(dpi));
  }
  return MulDiv(GetSystemMetrics(index), dpi, systemDpi());
}

LOGFONTW messageFont(int dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (functions().systemParameters) {
    functions().systemParameters(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                 static_cast<UINT>(dpi));
    return metrics.lfMessageFont;
  }
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, systemDpi());
  return metrics.lfMessageFont;
}

DpiContext DpiContext::perMonitor() {
  // The second version came half a year after the first.
  DPI_AWARENESS_CONTEXT before = setContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  if (!before) before = setContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
  return DpiContext(before);
}

DpiContext DpiContext::of(HWND window) {
  if (!window || !functions().contextOfWindow) return DpiContext(nullptr);
  DPI_AWARENESS_CONTEXT const own = functions().contextOfWindow(window);
  return DpiContext(own ? setContext(own) : nullptr);
}

DpiContext::~DpiContext() {
  if (before_) setContext(before_);
}

}  // namespace kebu::windows
