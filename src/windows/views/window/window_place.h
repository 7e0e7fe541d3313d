#pragma once

#include "windows/support/windows_api.h"
#include "windows/views/layout/metrics.h"

namespace kebu::windows {

inline RECT toRECT(const layout::Rect& r) {
  return {r.left, r.top, r.right(), r.bottom()};
}

void moveWindow(HWND window, const layout::Rect& place);
/// Moves a window and shows it; one with an empty place is hidden.
void putWindow(HWND window, const layout::Rect& place);

}  // namespace kebu::windows
