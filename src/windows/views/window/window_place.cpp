#include "windows/views/window/window_place.h"

namespace kebu::windows {

RECT workAreaAt(const RECT& place) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

bool isShownIn(HWND outer, HWND window) {
  for (; window && window != outer; window = GetAncestor(window, GA_PARENT)) {
    if (!(GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE)) return false;
  }
  return window != nullptr;
}

void moveWindow(HWND window, const layout::Rect& place) {
  RECT now{};
  GetWindowRect(window, &now);
  MapWindowPoints(nullptr, GetAncestor(window, GA_PARENT), reinterpret_cast<POINT*>(&now), 2);
  const bool same = now.left == place.left && now.top == place.top && now.right == place.right() &&
                    now.bottom == place.bottom();
  if (same) return;
  // The old pixels are not copied: another control that is moved may have been drawn over them.
  SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void putBehind(HWND window, HWND previous) {
  if (!window) return;
  SetWindowPos(window, previous, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void putWindow(HWND window, const layout::Rect& place) {
  const bool isVisible = (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
  if (place.isEmpty()) {
    if (isVisible) ShowWindow(window, SW_HIDE);
  } else if (isVisible) {
    moveWindow(window, place);
  } else {
    // Both at once: each is a round through the window manager.
    SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_SHOWWINDOW);
  }
}

}  // namespace kebu::windows
