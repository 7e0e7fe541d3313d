#include "windows/views/window/window.h"

#include <mutex>
#include <set>

#include "common/error.h"
#include "windows/views/window/activity.h"
#include "windows/views/window/attached_view.h"
#include "windows/views/window/guard.h"

namespace kebu::windows {

namespace {

/// The classes that were registered. Threads share them.
std::set<std::wstring>& classNames() {
  static std::set<std::wstring> names;
  return names;
}
std::mutex classGuard;

void registerClass(HINSTANCE module, const WindowTraits& traits, WNDPROC procedure) {
  const std::lock_guard lock(classGuard);
  if (!classNames().insert(traits.className).second) return;
  WNDCLASSEXW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.style = traits.classStyle;
  wanted.lpfnWndProc = procedure;
  wanted.hInstance = module;
  wanted.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  wanted.hIcon = LoadIconW(module, L"WINDOW");
  wanted.lpszClassName = traits.className;
  RegisterClassExW(&wanted);
}

}  // namespace

Window::~Window() {
  destroy();
}

RECT Window::clientArea() const {
  RECT area{};
  GetClientRect(handle_, &area);
  return area;
}

void Window::create(HINSTANCE module, const WindowTraits& traits, HWND parent, const RECT& bounds,
                    const std::wstring& title) {
  registerClass(module, traits, procedure);
  CreateWindowExW(traits.extendedStyle, traits.className, title.c_str(), traits.style, bounds.left,
                  bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, parent,
                  nullptr, module, this);
  if (!handle_) throw RuntimeError(7, "The window could not be created.");
}

std::optional<int> Window::scrolled(int bar, WPARAM wParam, int line) const {
  SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(handle_, bar, &info);
  const int page = static_cast<int>(info.nPage);
  switch (LOWORD(wParam)) {
    case SB_LINEUP:
      return info.nPos - line;
    case SB_LINEDOWN:
      return info.nPos + line;
    case SB_PAGEUP:
      return info.nPos - page;
    case SB_PAGEDOWN:
      return info.nPos + page;
    case SB_THUMBTRACK:
      return info.nTrackPos;
    case SB_TOP:
      return info.nMin;
    case SB_BOTTOM:
      return info.nMax;
    default:
      return std::nullopt;
  }
}

void Window::setScrollBar(int bar, const layout::ScrollRange& range) const {
  const UINT page = static_cast<UINT>(range.page);
  const SCROLLINFO info{sizeof info,
                        SIF_RANGE | SIF_PAGE | SIF_POS,
                        range.first,
                        range.last,
                        page,
                        range.position,
                        0};
  SetScrollInfo(handle_, bar, &info, TRUE);
}

LRESULT Window::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcW(handle_, message, wParam, lParam);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* const creating =
        static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    creating->handle_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creating));
  }
  auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!self) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    attachedViews().remove(window);
    self->handle_ = nullptr;
    const LRESULT answered = DefWindowProcW(window, message, wParam, lParam);
    if (!self->ending_) guarded([&] { self->lost(); });
    return answered;
  }
  if (self->ending_) return DefWindowProcW(window, message, wParam, lParam);
  const Activity activity;
  LRESULT result = 0;
  guarded([&] { result = self->answer(message, wParam, lParam); });
  return result;
}

void unregisterWindowClasses(HINSTANCE module) {
  const std::lock_guard lock(classGuard);
  // One that still has windows stays.
  std::erase_if(classNames(), [&](const std::wstring& name) {
    return UnregisterClassW(name.c_str(), module) != 0;
  });
}

}  // namespace kebu::windows
