#pragma once

#include <cstdint>
#include <optional>

#include "windows/views/accessibility/describable.h"

// What assistive technology is told, by IAccessible. Texts and states come from what a control
// answers to an Inspection; only roles, and who contains whom, are added here.
//
// A grid contains its heads as row 0 and its rows, each of which contains its cells. Rows are made
// when they are asked for, so that their number costs nothing.
namespace kebu::windows {

/// Answers WM_GETOBJECT of a window that shows `part` of `described`; nothing when the message asks
/// for another object than the window's content.
std::optional<LRESULT> answerGetObject(Describable& described, const PartId& part, WPARAM wParam,
                                       LPARAM lParam);

/// The number by which the grid's object knows a row, and a cell of a grid with so many columns.
constexpr LONG rowChild(std::int32_t row) {
  return row + 1;
}
constexpr LONG cellChild(std::int32_t row, std::int32_t column, std::int32_t columns) {
  return -(row * columns + column + 1);
}

/// Tells assistive technology of a change of a part that `window` shows; `child` as above, or an
/// item's index + 1, or CHILDID_SELF.
inline void tellChange(DWORD event, HWND window, LONG child = CHILDID_SELF) {
  NotifyWinEvent(event, window, OBJID_CLIENT, child);
}

}  // namespace kebu::windows
