#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <vector>

#include "windows/views/drawing/painting.h"
#include "windows/views/drawing/theme.h"
#include "windows/views/grid/grid_source.h"
#include "windows/views/window/inspection.h"
#include "windows/views/window/keyboard.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

class TextRuler;

/// Rows in columns, read from the source as they come into sight, with cells
/// that are edited in place. Neither rows nor ticks are kept here, so their
/// number costs nothing.
class GridControl : public Window {
 public:
  GridControl(HINSTANCE module, HWND parent, const Theme& theme, GridSource& source);
  ~GridControl() override;

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
  RECT rowBounds(std::int32_t row) const;
  RECT cellBounds(std::int32_t row, std::size_t column) const;
  RECT headBounds(std::size_t column) const;
  RECT tickAllBounds(std::size_t column) const;
  bool isTickAllOn(std::size_t column) const;

 protected:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  struct Hit {
    std::int32_t row = 0;  ///< 0 in the heads
    int column = -1;
    bool onEdge = false;  ///< on a head's right edge
  };

  int rowHeight() const;
  int headHeight() const;
  int gutter() const;
  int columnLeft(std::size_t column) const;
  int columnWidth(std::size_t column) const;
  /// Finds what the columns need at the least.
  void measureColumns();
  int headNeeds(const GridSource::Column& column, const TextRuler& ruler) const;
  int cellsNeed(std::size_t column, const TextRuler& ruler) const;
  bool isShown(std::size_t column) const;
  /// The next column in sight, `column` itself when there is none; `step` is 1 or -1.
  std::size_t shownFrom(std::size_t column, int step) const;
  int totalWidth() const;
  int visibleRows() const;
  std::int32_t lastTopRow() const;
  void updateScrollBars();
  void scrollTo(std::int32_t topRow);
  void scroll(int bar, WPARAM wParam);
  void showColumn(std::size_t column);
  Hit hitTest(POINT point) const;

  void paint();
  void paintHead(HDC dc);
  void paintRow(HDC dc, std::int32_t row);
  void paintCell(HDC dc, std::int32_t row, std::size_t column, const RECT& area, bool isCurrentRow);

  void buttonDown(POINT point);
  void doubleClick(POINT point);
  void keyDown(WPARAM key, bool shift, bool control);
  void character(wchar_t typed);
  bool goTo(std::int32_t row, std::size_t column);
  bool isEditable(std::int32_t row, std::size_t column);
  void tick(std::int32_t row, std::size_t column);
  void tickAll(std::size_t column, bool on);
  void startEdit(const wchar_t* typed);
  void lookupCurrent();
  void endEdit();
  void editorNotified(UINT code);

  HINSTANCE module_;
  const Theme* theme_;
  GridSource& source_;
  std::vector<int> widths_;  ///< of columns the user has drawn wider, in 96ths; else 0
  std::vector<int> needed_;  ///< widths at the least, in pixels, for columns not drawn by the user
  std::int32_t measuredRows_ = 0;
  std::map<std::size_t, bool> allTicked_;
  std::int32_t topRow_ = 1;
  int leftOffset_ = 0;
  std::size_t column_ = 0;
  int resizing_ = -1;
  HWND editor_ = nullptr;
  std::int32_t editedRow_ = 0;
  std::size_t editedColumn_ = 0;
  std::wstring editedText_;
  bool entryTaken_ = false;  ///< of the open list, be it the one that was there
  int wheel_ = 0;
};

}  // namespace kebu::windows
