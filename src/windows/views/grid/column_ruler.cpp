#include "windows/views/grid/column_ruler.h"

#include <algorithm>

namespace kebu::windows {

using controls::ColumnKind;

namespace {

// In 96ths of an inch.
constexpr int cellPadding = 16;
constexpr int glyphWidth = 14;
constexpr int tickAllWidth = 16 + 5;
constexpr int widestCode = 260;
constexpr int orderMark = 14;

bool hasGlyph(ColumnKind kind) {
  return kind == ColumnKind::Lookup || kind == ColumnKind::ValueList;
}

}  // namespace

ColumnRuler::ColumnRuler(const Theme& theme, GridSource& source)
    : theme_(theme), source_(source), heads_(theme.strong()), cells_(theme.font()) {}

int ColumnRuler::headWidth(std::size_t column) const {
  const GridSource::Column& head = source_.columns()[column];
  if (head.caption.empty()) return 0;
  const int box = head.kind == ColumnKind::Check ? theme_.px(tickAllWidth) : 0;
  const auto& sorted = source_.tools().sortedBy();
  const int mark = sorted && sorted->column == column ? theme_.px(orderMark) : 0;
  return box + heads_.widthOf(head.caption) + theme_.px(cellPadding) + mark;
}

int ColumnRuler::widestCell(std::size_t column, std::int32_t first, std::int32_t last) const {
  int widest = 0;
  for (std::int32_t row = first; row <= last; ++row) {
    const std::string text = source_.cellText(row, column);
    if (!text.empty()) widest = std::max(widest, cells_.widthOf(text));
  }
  if (widest == 0) return 0;
  const bool glyph = hasGlyph(source_.columns()[column].kind);
  return widest + theme_.px(cellPadding + (glyph ? glyphWidth : 0));
}

int ColumnRuler::cellsWidth(std::size_t column, std::int32_t first, std::int32_t last) const {
  const ColumnKind kind = source_.columns()[column].kind;
  if (!isNumeric(kind) && !hasGlyph(kind)) return 0;
  return std::min(widestCell(column, first, last), theme_.px(widestCode));
}

int ColumnRuler::fittingWidth(std::size_t column, std::int32_t first, std::int32_t last) const {
  const bool isCheck = source_.columns()[column].kind == ColumnKind::Check;
  return std::max(headWidth(column), isCheck ? 0 : widestCell(column, first, last));
}

}  // namespace kebu::windows
