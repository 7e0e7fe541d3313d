#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "windows/views/layout/metrics.h"

namespace kebu::windows::layout {

/// What the geometry has to know of a column.
struct GridColumn {
  int width = 0;         ///< in 96ths of an inch; a column of no width is hidden
  bool isCheck = false;  ///< its head has a box that sets all of its cells
  int given = 0;         ///< the width that the user gave it earlier; 0 for none

  bool operator==(const GridColumn&) const = default;
};

/// What a grid shows: its columns and how many rows.
struct GridContents {
  std::vector<GridColumn> columns;
  std::int32_t rowCount = 0;
  bool hasRowMarks = false;  ///< there is a mark before each row
};

/// The part of a grid that a point lies in.
struct GridHit {
  std::int32_t row = -1;  ///< from 1; 0 in the heads, -1 below the last row
  int column = -1;        ///< from 0; -1 beside the columns
  bool onEdge = false;    ///< on the right edge of the column's head, where its width is changed
};

/// Where the parts of a grid are, in pixels of its client area: a row of heads, below it rows of
/// the same height, of which as many are counted as fit in full. Rows count from 1, columns from 0.
/// Scrolls down by whole rows and sideways by pixels; the first column stays where it is, unless it
/// takes up more than half of the width.
class GridGeometry {
 public:
  /// The metrics must outlive this and may change.
  explicit GridGeometry(const Metrics& metrics) : metrics_(metrics) {}

  /// When the number of columns changes, the widths that the user gave are forgotten.
  void setContents(GridContents contents);
  /// The size of the client area.
  void setSize(int width, int height);

  int rowHeight() const { return metrics_.lineHeight + metrics_.px(11); }
  int headHeight() const { return metrics_.lineHeight + metrics_.px(15); }
  /// The room before the first column.
  int gutter() const { return metrics_.px(contents_.hasRowMarks ? 22 : 4); }

  // Columns.
  bool isShown(std::size_t column) const { return contents_.columns[column].width > 0; }
  /// The next shown column, `column` itself when there is none; `step` is 1 or -1.
  std::size_t shownFrom(std::size_t column, int step) const;
  int columnWidth(std::size_t column) const;
  int columnLeft(std::size_t column) const;
  /// Whether the column stays in sight when the others are scrolled sideways.
  bool isFrozen(std::size_t column) const;
  /// The right edge of what stays in sight.
  int frozenRight() const;
  int totalWidth() const { return columnLeft(contents_.columns.size()) + offset_; }
  /// The least width of a column in pixels, unless the user gave it another one.
  void setRequiredWidth(std::size_t column, int width) { widths_[column].required = width; }
  int requiredWidth(std::size_t column) const { return widths_[column].required; }
  void forgetRequiredWidths() {
    for (Width& width : widths_) width.required = 0;
  }
  /// The user moves the column's right edge to `x`.
  void moveEdge(std::size_t column, int x) { fit(column, x - columnLeft(column)); }
  /// The user gives the column a width in pixels.
  void fit(std::size_t column, int width);
  /// The width that the user gave the column in 96ths of an inch; 0 for none.
  int userWidth(std::size_t column) const { return widths_[column].user; }

  // Rows.
  std::int32_t rowCount() const { return contents_.rowCount; }
  /// How many rows fit in full, at least 1.
  std::int32_t visibleRows() const { return std::max((height_ - headHeight()) / rowHeight(), 1); }
  std::int32_t topRow() const { return topRow_; }
  /// The last row of which anything may be in sight.
  std::int32_t bottomRow() const { return std::min(contents_.rowCount, topRow_ + visibleRows()); }

  // Where parts are; empty when out of sight.
  Rect rowBounds(std::int32_t row) const;
  Rect cellBounds(std::int32_t row, std::size_t column) const;
  /// What is seen of a part of a column: not what the frozen column or the lower edge covers.
  Rect seenPart(std::size_t column, const Rect& part) const;
  Rect headBounds(std::size_t column) const;
  /// The box in the head of a column of check boxes; empty for other columns.
  Rect tickAllBounds(std::size_t column) const;
  GridHit hitTest(int x, int y) const;

  // Scrolling. A position beyond an end is set to that end.
  ScrollRange verticalRange() const;
  ScrollRange horizontalRange() const;
  void scrollToRow(std::int32_t topRow) { topRow_ = std::clamp(topRow, 1, lastTopRow()); }
  void scrollToOffset(int offset);
  /// Whether the row is among those that fit in full.
  bool isInView(std::int32_t row) const { return row >= topRow_ && row < topRow_ + visibleRows(); }
  /// Scrolls as far as it takes to have the row in full view.
  void showRow(std::int32_t row);
  /// The same for a column; of one that is too wide the left edge is shown.
  void showColumn(std::size_t column);
  /// Brings the position back into a range that has become shorter.
  void clampPosition();

 private:
  struct Width {
    int user = 0;      ///< given by the user, in 96ths of an inch; else 0
    int required = 0;  ///< in pixels
  };

  std::int32_t lastTopRow() const { return std::max(contents_.rowCount - visibleRows() + 1, 1); }

  const Metrics& metrics_;
  GridContents contents_;
  std::vector<Width> widths_;  ///< one a column
  int width_ = 0;
  int height_ = 0;
  std::int32_t topRow_ = 1;
  int offset_ = 0;  ///< how many pixels of the columns have been scrolled away to the left
};

}  // namespace kebu::windows::layout
