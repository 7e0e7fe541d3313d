#pragma once

#include <memory>
#include <vector>

#include "controls/lookup_list.h"
#include "windows/views/drawing/theme.h"
#include "windows/views/grid/grid_control.h"
#include "windows/views/window/inspection.h"
#include "windows/views/window/keyboard.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

/// The list of a look-up: typing leaves the rows that contain the text, Enter or a double click
/// chooses a row, Esc closes the list.
class LookupWindow : public Window, public GridSource, public KeyTarget {
 public:
  LookupWindow(HINSTANCE module, controls::LookupList& list, HWND owner);
  ~LookupWindow() override;

  void show();
  bool isDone() const { return done_; }

 private:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
  void lost() override { leave(); }
  std::function<void()> actionFor(const Key& key) override;

  const std::vector<Column>& columns() const override { return columns_; }
  std::int32_t rowCount() const override { return static_cast<std::int32_t>(shown_.size()); }
  std::int32_t currentRow() const override { return row_; }
  std::string cellText(std::int32_t row, std::size_t column) override {
    return list_.cellText(listRow(row), column);
  }
  void selectRow(std::int32_t row) override;
  void activate() override { take(); }

  /// The list's row of a row that is shown.
  std::int32_t listRow(std::int32_t row) const {
    return shown_.at(static_cast<std::size_t>(row - 1));
  }
  void build();
  void layOut();
  /// Takes the fonts, sizes and colours that apply now.
  void renewTheme(int dpi);
  void search();
  void take();
  void leave() { done_ = true; }
  bool inspect(Inspection& inspection);

  HINSTANCE module_;
  controls::LookupList& list_;
  Theme theme_;
  std::vector<Column> columns_;
  std::vector<std::int32_t> shown_;  ///< rows of the list
  std::int32_t row_ = 0;             ///< of those that are shown; 0 for none
  bool done_ = false;
  HWND hint_ = nullptr;
  HWND search_ = nullptr;
  std::unique_ptr<GridControl> grid_;
  HWND nothingFound_ = nullptr;
  HWND take_ = nullptr;
  HWND leave_ = nullptr;
  std::unique_ptr<KeyboardHook> keys_;
};

}  // namespace kebu::windows
