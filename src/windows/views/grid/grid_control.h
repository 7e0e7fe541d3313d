#pragma once

#include <functional>
#include <map>
#include <vector>

#include "windows/support/windows_api.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/drawing/theme.h"
#include "windows/views/grid/cell_editor.h"
#include "windows/views/grid/grid_source.h"
#include "windows/views/layout/grid_geometry.h"
#include "windows/views/window/inspection.h"
#include "windows/views/window/keyboard.h"
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
  /// Moves as the arrow and page keys do; whether the key means that.
  bool moveBy(WPARAM key, bool control);
  std::function<void()> actionFor(const Key& key);
  /// Ends editing and keeps what was typed; false when it was refused.
  bool commit();

  // Where parts are; empty when out of sight.
  RECT rowBounds(std::int32_t row) { return toRECT(geometry().rowBounds(row)); }
  RECT cellBounds(std::int32_t row, std::size_t column) {
    return toRECT(geometry().cellBounds(row, column));
  }
  RECT headBounds(std::size_t column) { return toRECT(geometry().headBounds(column)); }
  /// Empty for a column whose cells are not set all at once.
  RECT tickAllBounds(std::size_t column) {
    if (source_.columns()[column].refusesAll) return {};
    return toRECT(geometry().tickAllBounds(column));
  }
  /// Whether all cells of a check column are ticked.
  bool isTickAllOn(std::size_t column) const;

 protected:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
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
  void paintRow(HDC dc, std::int32_t row);
  void paintCell(HDC dc, std::int32_t row, std::size_t column, const RECT& area, bool isCurrentRow);

  /// Shows the current row's menu at a point of the screen; (-1, -1) when a key asked for it.
  void showMenu(POINT screen);
  void buttonDown(POINT point);
  void doubleClick(POINT point);
  void keyDown(WPARAM key, bool shift, bool control);
  void character(wchar_t typed);
  bool goTo(std::int32_t row, std::size_t column);
  bool isEditable(std::int32_t row, std::size_t column);
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
  std::int32_t measuredRows_ = 0;  ///< how many rows there were when the columns were measured
  std::size_t column_ = 0;         ///< the current column
  int resizing_ = -1;              ///< the column whose width the user changes, or -1
  int wheel_ = 0;                  ///< the wheel's turn that has not scrolled a row yet
};

}  // namespace kebu::windows
