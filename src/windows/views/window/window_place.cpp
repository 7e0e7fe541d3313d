#include "windows/views/window/window_place.h"

namespace kebu::windows {

void moveWindow(HWND window, const layout::Rect& place) {
  RECT now{};
  GetWindowRect(window, &now);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&now), 2);
  const bool same = now.left == place.left && now.top == place.top && now.right == place.right() &&
                    now.bottom == place.bottom();
  if (same) return;
  // The old pixels are not copied: another control that is moved may have been drawn over them.
  SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void putWindow(HWND window, const layout::Rect& place) {
  moveWindow(window, place);
  ShowWindow(window, place.isEmpty() ? SW_HIDE : SW_SHOWNA);
}

}  // namespace kebu::windows
