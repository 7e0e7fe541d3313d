#pragma once

#include "windows/support/windows_api.h"
#include "windows/views/layout/metrics.h"

namespace kebu::windows {

inline RECT toRECT(const layout::Rect& r) {
  return {r.left, r.top, r.right(), r.bottom()};
}

inline layout::Rect toRect(const RECT& r) {
  return {static_cast<int>(r.left), static_cast<int>(r.top), static_cast<int>(r.right - r.left),
          static_cast<int>(r.bottom - r.top)};
}

/// The part that windows may cover of the screen that most of `place` is on.
RECT workAreaAt(const RECT& place);
/// Whether a window would be seen if `outer` were, which may be hidden still.
bool isShownIn(HWND outer, HWND window);
void moveWindow(HWND window, const layout::Rect& place);
/// Puts a window behind another one of the same parent, which the tabulator comes to before.
void putBehind(HWND window, HWND previous);
/// Moves a window and shows it; one with an empty place is hidden.
void putWindow(HWND window, const layout::Rect& place);

}  // namespace kebu::windows
