#include "controls/grid/row_sort.h"

#include <algorithm>
#include <numeric>

#include "common/convert.h"
#include "common/error.h"
#include "common/text_folding.h"

namespace kebu::controls {

namespace {

constexpr std::size_t firstRun = 4096;
constexpr std::size_t mergedInASlice = 65536;

}  // namespace

SortKey sortKeyOf(const Value& cell) {
  if (cell.isEmpty() || cell.isNull()) return {};
  if (cell.isNumber()) return toDecimal(cell);
  if (cell.holds<Date>()) return cell.as<Date>();
  std::string text = foldedText(cell.isText() ? cell.as<std::string>() : toDisplay(cell));
  if (text.empty()) return {};
  return text;
}

RowSort::RowSort(GridRows& rows, std::size_t column, bool isDescending)
    : rows_(rows),
      column_(column),
      isDescending_(isDescending),
      order_(static_cast<std::size_t>(rows.rowCount())),
      allSteps_(2 * std::int64_t{rows.rowCount()}) {
  std::iota(order_.begin(), order_.end(), 1);
  for (std::size_t run = firstRun; run < count(); run *= 2) {
    allSteps_ += static_cast<std::int64_t>(count());
  }
}

Progress RowSort::progress() const {
  const auto total = static_cast<std::int64_t>(count());
  return {allSteps_ == 0 ? total : total * steps_ / allSteps_, total};
}

bool RowSort::work() {
  if (keys_.size() < count()) {
    readKeys();
  } else if (sorted_ < count()) {
    sortRun();
  } else if (run_ < count()) {
    merge();
  }
  return keys_.size() == count() && sorted_ == count() && run_ >= count();
}

void RowSort::readKeys() {
  const auto first = static_cast<std::int32_t>(keys_.size()) + 1;
  const std::vector<Value> cells = rows_.cells(column_, first, rowsOfASlice);
  if (cells.empty()) throw RuntimeError(3021, "Either BOF or EOF is True.");
  for (const Value& cell : cells) {
    if (keys_.size() < count()) keys_.push_back(sortKeyOf(cell));
  }
  steps_ += static_cast<std::int64_t>(cells.size());
}

bool RowSort::isBefore(std::int32_t row, std::int32_t other) const {
  const SortKey& key = keys_[static_cast<std::size_t>(row - 1)];
  const SortKey& otherKey = keys_[static_cast<std::size_t>(other - 1)];
  return isDescending_ ? otherKey < key : key < otherKey;
}

void RowSort::sortRun() {
  const std::size_t end = std::min(sorted_ + firstRun, count());
  std::stable_sort(order_.begin() + static_cast<std::ptrdiff_t>(sorted_),
                   order_.begin() + static_cast<std::ptrdiff_t>(end),
                   [this](std::int32_t a, std::int32_t b) { return isBefore(a, b); });
  steps_ += static_cast<std::int64_t>(end - sorted_);
  sorted_ = end;
  if (sorted_ < count()) return;
  run_ = firstRun;
  beginMerge();
}

void RowSort::beginMerge() {
  left_ = merged_.size();
  leftEnd_ = right_ = std::min(left_ + run_, count());
  rightEnd_ = std::min(right_ + run_, count());
}

void RowSort::merge() {
  for (std::size_t i = 0; i < mergedInASlice && merged_.size() < count(); ++i) {
    if (left_ == leftEnd_ && right_ == rightEnd_) beginMerge();
    const bool takesRight =
        left_ == leftEnd_ || (right_ < rightEnd_ && isBefore(order_[right_], order_[left_]));
    merged_.push_back(order_[takesRight ? right_++ : left_++]);
    ++steps_;
  }
  if (merged_.size() < count()) return;
  order_.swap(merged_);
  merged_.clear();
  run_ *= 2;
  beginMerge();
}

}  // namespace kebu::controls
