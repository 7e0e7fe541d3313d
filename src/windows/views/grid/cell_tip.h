#pragma once

#include <functional>
#include <string>
#include <utility>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Shows a text, such as one that is cut off, while the pointer rests on a part of the grid.
class CellTip {
 public:
  /// `textAt` gives the text to show for a point of the grid; "" for none.
  explicit CellTip(std::function<std::wstring(POINT)> textAt) : textAt_(std::move(textAt)) {}
  CellTip(const CellTip&) = delete;
  CellTip& operator=(const CellTip&) = delete;

  void create(HWND grid);
  /// The pointer is on a part of that number, which differs from part to part.
  void pointerOn(std::int64_t part);
  /// Something else stands below the pointer now.
  void hide();
  /// Answers a notification of the tip; false when it is none of its own.
  bool notified(HWND grid, NMHDR* header);

 private:
  static constexpr int widest = 480;  ///< pixels; longer texts take several lines

  std::function<std::wstring(POINT)> textAt_;
  HWND tip_ = nullptr;  ///< destroyed with the grid, which owns it
  std::int64_t part_ = -1;
  std::wstring text_;
};

}  // namespace kebu::windows
