#pragma once

#include <string>

#include "windows/support/windows_api.h"
#include "windows/views/drawing/theme.h"

namespace kebu::windows {

/// The strip below the rows of a grid: how many rows there are, how far long work is, and the box
/// in which the user types what to find.
class GridFoot {
 public:
  GridFoot(HINSTANCE module, const Theme& theme) : module_(module), theme_(&theme) {}
  GridFoot(const GridFoot&) = delete;
  GridFoot& operator=(const GridFoot&) = delete;

  int height() const { return theme_->metrics().lineHeight + theme_->px(9); }
  /// Where it is in the grid's client area.
  RECT bounds(const RECT& client) const;

  /// Opens the box as a child of the grid; `prompt` stands before it.
  void open(HWND grid, const std::wstring& prompt, const std::wstring& text);
  void close();
  bool isOpen() const { return box_ != nullptr; }
  bool owns(HWND control) const { return box_ && control == box_; }
  /// What the user typed.
  std::wstring entered() const;
  void layOut(const RECT& client);
  /// `stop` is the caption of the button that stops long work; "" for none.
  void paint(HDC dc, const RECT& client, const std::wstring& status,
             const std::wstring& stop) const;
  /// Where that button is.
  RECT stopBounds(const RECT& client, const std::wstring& stop) const;
  void themeChanged();

 private:
  HINSTANCE module_;
  const Theme* theme_;
  HWND box_ = nullptr;  ///< destroyed with the grid at the latest
  std::wstring prompt_;
};

}  // namespace kebu::windows
