#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "windows/support/windows_api.h"
#include "windows/views/drawing/theme.h"

namespace kebu::windows {

/// The control in which a grid's cell is edited: an edit box, or a combo box for a list of values.
/// It stands over the cell as a child of the grid, one at a time.
class CellEditor {
 public:
  struct Cell {
    std::int32_t row = 0;
    std::size_t column = 0;
    std::wstring text;  ///< before it is edited
    std::wstring head;  ///< the caption of its column
  };
  /// Where the control stands.
  struct Place {
    HWND grid;
    RECT cell;
  };
  /// What the user entered.
  struct Entry {
    std::int32_t row = 0;
    std::size_t column = 0;
    bool isFromList = false;
    std::optional<std::size_t> item;  ///< the chosen entry of the list, if there is one
    std::wstring text;
  };
  /// What the grid has to do after a notification of the control.
  enum class Request { Nothing, Discard, Keep, KeepAndFocusGrid };

  /// The grid answers this message of its own with destroy().
  static constexpr UINT destroyMessage = WM_APP + 10;

  CellEditor(HINSTANCE module, const Theme& theme) : module_(module), theme_(&theme) {}
  CellEditor(const CellEditor&) = delete;
  CellEditor& operator=(const CellEditor&) = delete;

  bool isOpen() const { return control_ != nullptr; }
  bool owns(HWND control) const { return control_ && control == control_; }
  /// `typed` replaces the cell's text; without it the text is selected.
  void openText(const Place& place, Cell cell, bool alignRight, const wchar_t* typed);
  void openList(const Place& place, Cell cell, const std::vector<std::string>& items);
  /// Closes it; what was entered, nothing when the cell stays as it was.
  std::optional<Entry> take();
  /// Closes it and forgets what was entered.
  void discard();
  /// Finds out what a notification `code` of the control means.
  Request notified(UINT code);

  /// Answers destroyMessage.
  static void destroy(LPARAM lParam) { DestroyWindow(reinterpret_cast<HWND>(lParam)); }

 private:
  bool create(const Place& place, Cell cell, const wchar_t* className, DWORD style, int listHeight);
  void show();

  HINSTANCE module_;
  const Theme* theme_;
  HWND control_ = nullptr;  ///< destroyed by destroyMessage, or together with the grid
  Cell cell_;
  bool isList_ = false;
  bool entryTaken_ = false;  ///< the user chose an entry of the list, perhaps the same as before
};

}  // namespace kebu::windows
