#pragma once

#include "windows/views/drawing/painting.h"
#include "windows/views/drawing/theme.h"
#include "windows/views/grid/grid_source.h"

namespace kebu::windows {

/// Finds the widths in pixels that a grid's columns must have. The stated width of a column is
/// enough for its texts, which may be cut off; its head, codes and numbers never are.
class ColumnRuler {
 public:
  ColumnRuler(const Theme& theme, GridSource& source);

  /// 0 for a column without a caption.
  int headWidth(std::size_t column) const;
  /// At which neither the head nor one of these cells is cut off.
  int fittingWidth(std::size_t column, std::int32_t first, std::int32_t last) const;
  /// Of the cells from `first` to `last`; 0 where texts may be cut off.
  int cellsWidth(std::size_t column, std::int32_t first, std::int32_t last) const;

 private:
  int widestCell(std::size_t column, std::int32_t first, std::int32_t last) const;

  const Theme& theme_;
  GridSource& source_;
  TextRuler heads_;
  TextRuler cells_;
};

}  // namespace kebu::windows
