#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/menu.h"
#include "windows/support/windows_api.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/drawing/theme.h"
#include "windows/views/grid/cell_editor.h"
#include "windows/views/grid/cell_tip.h"
#include "windows/views/grid/grid_foot.h"
#include "windows/views/grid/grid_source.h"
#include "windows/views/layout/grid_geometry.h"
#include "windows/views/window/inspection.h"
#include "windows/views/window/keyboard.h"
#include "windows/views/window/pointer_watch.h"
#include "windows/views/window/window.h"
#include "windows/views/window/window_place.h"

namespace kebu::windows {

/// The window of a grid: draws what its source shows, and turns keys and clicks into calls of the
/// source. Cells are read as they come into sight and edited in place. Neither rows nor ticks are
/// kept here, so their number costs nothing.
class GridControl : public Window {
 public:
  GridControl(HINSTANCE module, HWND parent, const Theme& theme, GridSource& source);

  /// Columns, rows or cells may be other ones.
  void sourceChanged();
  void themeChanged();
  /// Brings the current row into sight.
  void showCurrentRow();
  /// Moves as the arrow and page keys do; whether the key means that. With Shift the rows from
  /// where the move began are chosen together.
  bool moveBy(WPARAM key, bool control, bool shift = false);
  std::function<void()> actionFor(const Key& key);
  /// Ends editing and keeps what was typed; false when it was refused.
  bool commit();

  // Where parts are; empty when out of sight.
  RECT rowBounds(std::int32_t row);
  RECT cellBounds(std::int32_t row, std::size_t column) {
    return toRECT(geometry().seenPart(column, geometry_.cellBounds(row, column)));
  }
  RECT headBounds(std::size_t column) {
    return toRECT(geometry().seenPart(column, geometry_.headBounds(column)));
  }
  /// Empty for a column whose cells are not set all at once.
  RECT tickAllBounds(std::size_t column) {
    if (source_.columns()[column].refusesAll) return {};
    return toRECT(geometry().seenPart(column, geometry_.tickAllBounds(column)));
  }
  RECT headsBounds() const;
  std::size_t currentColumn() const { return column_; }
  PartId partAt(POINT point);
  bool goToPart(const PartId& part);
  /// The caption of a column; a code's is that of its description.
  std::string headOf(std::size_t column) const;
  /// Whether all cells of a check column are ticked.
  bool isTickAllOn(std::size_t column) const;

 protected:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  static constexpr UINT_PTR workTimer = 1;
  static constexpr UINT workInterval = 10;  ///< milliseconds

  /// The geometry of what the source shows now.
  layout::GridGeometry& geometry();
  /// Widens the columns to what their heads and the cells in sight need.
  void measureColumns();
  void updateScrollBars();
  void scrollTo(std::int32_t topRow);
  void scroll(int bar, WPARAM wParam);
  void showColumn(std::size_t column);

  // grid_control_paint.cpp
  void paint();
  void paintHead(HDC dc);
  void paintHeadOf(HDC dc, std::size_t column);
  void paintRow(HDC dc, std::int32_t row);
  /// Calls `paintOne` for each column, so that none is drawn over the one that stays in sight.
  void paintColumns(HDC dc, const std::function<void(std::size_t column)>& paintOne);
  void paintRowMark(HDC dc, const RECT& area, int state, bool isChosenRow);
  void paintCell(HDC dc, std::int32_t row, std::size_t column, const RECT& area, bool isChosenRow);

  // grid_control_tools.cpp
  controls::Menu menu();
  void showMenu(POINT screen);
  void sortBy(std::size_t column);
  /// Opens the box for what to find; `typed` is its first letter, 0 for none.
  void openFind(std::optional<std::size_t> column, wchar_t typed);
  void closeFind();
  void copyCell();
  /// The rows from place `first` to `last`.
  void copyRows(std::int32_t first, std::int32_t last);
  void exportRows();
  void fitColumn(std::size_t column);
  void keepWidth(std::size_t column);
  /// Tells the user of errors.
  void attempt(const std::function<void()>& work);
  void workOn();
  /// What the button in the foot says that stops long work; "" while there is none.
  std::wstring stopCaption() const;
  bool isOnStopButton(POINT point) const;
  void stopWork();
  /// The first and last of the chosen rows; 0 without any.
  std::pair<std::int32_t, std::int32_t> chosenRows() const;
  /// What a tip says at a point: a text that is cut off, the meaning of a row's mark.
  std::wstring tipAt(POINT point);
  std::function<void()> findBoxAction(const Key& key);

  void buttonDown(POINT point, bool shift);
  void rightButtonDown(POINT point);
  void pointerMoved(POINT point);
  void pointerOnRow(std::int32_t row);
  void wheelTurned(int delta, bool sideways);
  void scrollSideways(int offset);
  void doubleClick(POINT point);
  void keyDown(WPARAM key, bool shift, bool control);
  void character(wchar_t typed);
  bool goTo(std::int32_t row, std::size_t column);
  bool isEditable(std::int32_t row, std::size_t column);
  /// Tells assistive technology where the user is, when that is another cell than it was told.
  void tellPosition();
  void tellCell(DWORD event, std::int32_t row, std::size_t column) const;
  void tick(std::int32_t row, std::size_t column);
  void tickAll(std::size_t column, bool on);
  void lookupCurrent();
  /// Opens the editor in the current cell; `typed`, which may be null, replaces the cell's text.
  void startEdit(const wchar_t* typed);
  void cancelEdit();
  void store(const CellEditor::Entry& entry);
  void editorNotified(UINT code);

  const Theme* theme_;
  GridSource& source_;
  layout::GridGeometry geometry_;
  CellEditor editor_;
  GridFoot foot_;
  CellTip tip_;
  std::optional<std::size_t>
      soughtIn_;                   ///< the column in which the find box looks; nothing for all
  std::int32_t anchor_ = 0;        ///< the row where choosing several rows began, or 0
  std::int32_t measuredRows_ = 0;  ///< how many rows there were when the columns were measured
  std::size_t column_ = 0;         ///< the current column
  std::pair<std::int32_t, std::size_t> told_;  ///< where assistive technology knows the user to be
  std::int32_t toldRows_ = 0;                  ///< how many rows it knows of
  PointerPlace pointer_;
  std::int32_t hotRow_ = 0;  ///< the row that the pointer is on, or 0
  int resizing_ = -1;        ///< the column whose width the user changes, or -1
  int sidewaysWheel_ = 0;
  int wheel_ = 0;  ///< the wheel's turn that has not scrolled a row yet
};

}  // namespace kebu::windows
