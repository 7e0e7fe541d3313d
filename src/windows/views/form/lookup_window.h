#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "controls/lookup_list.h"
#include "windows/views/drawing/theme.h"
#include "windows/views/grid/grid_control.h"
#include "windows/views/window/inspection.h"
#include "windows/views/window/keyboard.h"
#include "windows/views/window/pointer_watch.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

/// The list of a look-up: typing leaves the rows that contain the text, Enter or a double click
/// chooses a row, Esc closes the list.
class LookupWindow : public Window, public GridSource, public KeyTarget, private Describable {
 public:
  /// `help` opens the user guide at the page from which the list was opened.
  LookupWindow(HINSTANCE module, controls::LookupList& list, HWND owner,
               std::function<void()> help);
  ~LookupWindow() override;

  void show();
  bool isDone() const { return done_; }

 private:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
  void lost() override { leave(); }
  std::function<void()> actionFor(const Key& key) override;

  const std::vector<Column>& columns() const override { return columns_; }
  std::int32_t rowCount() const override { return list_.shownCount(); }
  std::int32_t currentRow() const override { return list_.currentPlace(); }
  std::string cellText(std::int32_t row, std::size_t column) override {
    return list_.cellText(list_.rowAt(row), column);
  }
  void selectRow(std::int32_t row) override;
  void activate() override { take(); }
  controls::GridTools& tools() override { return list_.tools(); }
  std::string title() const override { return list_.title(); }
  void tell(const std::string& text) override;
  bool hasFindBox() const override { return false; }

  void build();
  void layOut();
  /// Takes the fonts, sizes and colours that apply now.
  void renewTheme(int dpi);
  void search();
  void take();
  void leave() { done_ = true; }
  // Describes its list.
  bool inspect(Inspection& inspection) override;
  Describable* description() override { return this; }
  HWND describedWindow() const override { return grid_->handle(); }
  PartId partAt(POINT point) override { return grid_->partAt(point); }
  bool goToPart(const PartId& part) override { return grid_->goToPart(part); }
  std::string translated(std::string_view text) const override {
    return list_.tools().translated(std::string(text));
  }

  HINSTANCE module_;
  controls::LookupList& list_;
  Theme theme_;
  std::vector<Column> columns_;
  std::function<void()> help_;
  PointerWatch pointer_{[](HWND, POINT) { return std::wstring(); }};  ///< buttons need no tips
  bool done_ = false;
  HWND hint_ = nullptr;
  HWND search_ = nullptr;
  std::unique_ptr<GridControl> grid_;
  HWND nothingFound_ = nullptr;
  HWND take_ = nullptr;
  HWND leave_ = nullptr;
  std::unique_ptr<KeyboardHook> keys_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace kebu::windows
