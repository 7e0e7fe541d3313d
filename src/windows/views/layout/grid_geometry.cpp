#include "windows/views/layout/grid_geometry.h"

#include <cstdlib>
#include <utility>

namespace kebu::windows::layout {

namespace {

// In 96ths of an inch.
constexpr int minimumColumn = 28;
constexpr int edgeReach = 4;
constexpr int tickAllLeft = 6;
constexpr int tickAllWidth = 16;

}  // namespace

void GridGeometry::setContents(GridContents contents) {
  contents_ = std::move(contents);
  if (widths_.size() != contents_.columns.size()) widths_.assign(contents_.columns.size(), {});
}

void GridGeometry::setSize(int width, int height) {
  width_ = width;
  height_ = height;
}

std::size_t GridGeometry::shownFrom(std::size_t column, int step) const {
  // Unsigned: a step before the first column leads beyond the last one.
  const std::size_t count = contents_.columns.size();
  std::size_t at = column + static_cast<std::size_t>(step);
  while (at < count && !isShown(at)) at += static_cast<std::size_t>(step);
  return at < count ? at : column;
}

int GridGeometry::columnWidth(std::size_t column) const {
  if (!isShown(column)) return 0;
  const Width& width = widths_[column];
  const int given = width.user ? width.user : contents_.columns[column].given;
  if (given) return metrics_.px(std::max(given, minimumColumn));
  const int stated = std::max(contents_.columns[column].width, minimumColumn);
  return std::max(metrics_.px(stated), width.required);
}

bool GridGeometry::isFrozen(std::size_t column) const {
  const std::vector<GridColumn>& columns = contents_.columns;
  const bool isFirst =
      column < columns.size() && isShown(column) &&
      std::none_of(columns.begin(), columns.begin() + static_cast<std::ptrdiff_t>(column),
                   [](const GridColumn& before) { return before.width > 0; });
  return isFirst && gutter() + columnWidth(column) <= width_ / 2;
}

int GridGeometry::frozenRight() const {
  for (std::size_t i = 0; i < contents_.columns.size(); ++i) {
    if (isShown(i)) return gutter() + (isFrozen(i) ? columnWidth(i) : 0);
  }
  return gutter();
}

int GridGeometry::columnLeft(std::size_t column) const {
  int left = gutter() - (isFrozen(column) ? 0 : offset_);
  for (std::size_t i = 0; i < column; ++i) left += columnWidth(i);
  return left;
}

void GridGeometry::fit(std::size_t column, int width) {
  widths_[column].user = std::max(metrics_.units(width), minimumColumn);
}

Rect GridGeometry::rowBounds(std::int32_t row) const {
  if (row < topRow_ || row > bottomRow()) return {};
  const int top = headHeight() + (row - topRow_) * rowHeight();
  if (top >= height_) return {};
  return {0, top, width_, rowHeight()};
}

Rect GridGeometry::cellBounds(std::int32_t row, std::size_t column) const {
  const Rect whole = rowBounds(row);
  if (whole.isEmpty()) return {};
  const Rect cell{columnLeft(column), whole.top, columnWidth(column), whole.height};
  return seenPart(column, cell).isEmpty() ? Rect{} : cell;
}

Rect GridGeometry::seenPart(std::size_t column, const Rect& part) const {
  const int left = isFrozen(column) ? part.left : std::max(part.left, offset_ ? frozenRight() : 0);
  const Rect seen{left, part.top, std::min(part.right(), width_) - left,
                  std::min(part.bottom(), height_) - part.top};
  return seen.isEmpty() ? Rect{} : seen;
}

Rect GridGeometry::headBounds(std::size_t column) const {
  return {columnLeft(column), 0, columnWidth(column), headHeight()};
}

Rect GridGeometry::tickAllBounds(std::size_t column) const {
  if (!contents_.columns[column].isCheck) return {};
  const Rect head = headBounds(column);
  return {head.left + metrics_.px(tickAllLeft), head.top, metrics_.px(tickAllWidth), head.height};
}

GridHit GridGeometry::hitTest(int x, int y) const {
  GridHit hit;
  const bool inHeads = y < headHeight();
  for (std::size_t i = 0; i < contents_.columns.size(); ++i) {
    const bool isCovered = x < frozenRight() && !isFrozen(i) && offset_ > 0;
    if (!isShown(i) || isCovered) continue;
    const int left = columnLeft(i);
    const int right = left + columnWidth(i);
    if (inHeads && std::abs(x - right) <= metrics_.px(edgeReach)) {
      return {0, static_cast<int>(i), true};
    }
    if (x >= left && x < right) hit.column = static_cast<int>(i);
  }
  if (inHeads) {
    hit.row = 0;
  } else {
    const std::int32_t row = topRow_ + (y - headHeight()) / rowHeight();
    if (row <= contents_.rowCount) hit.row = row;
  }
  return hit;
}

ScrollRange GridGeometry::verticalRange() const {
  return {1, std::max(contents_.rowCount, 1), visibleRows(), topRow_};
}

ScrollRange GridGeometry::horizontalRange() const {
  return {0, std::max(totalWidth() - 1, 0), width_, offset_};
}

void GridGeometry::scrollToOffset(int offset) {
  offset_ = std::clamp(offset, 0, std::max(totalWidth() - width_, 0));
}

void GridGeometry::showRow(std::int32_t row) {
  if (row < topRow_) scrollToRow(row);
  if (row >= topRow_ + visibleRows()) scrollToRow(row - visibleRows() + 1);
}

void GridGeometry::showColumn(std::size_t column) {
  if (isFrozen(column)) return;
  const int hiddenLeft = frozenRight() - columnLeft(column);
  const int hiddenRight = columnLeft(column) + columnWidth(column) - width_;
  if (hiddenLeft > 0) {
    scrollToOffset(offset_ - hiddenLeft);
  } else if (hiddenRight > 0) {
    scrollToOffset(offset_ + std::min(hiddenRight, -hiddenLeft));
  }
}

void GridGeometry::clampPosition() {
  scrollToRow(topRow_);
  scrollToOffset(offset_);
}

}  // namespace kebu::windows::layout
