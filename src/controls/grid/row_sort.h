#pragma once

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

#include "common/date.h"
#include "common/decimal.h"
#include "controls/grid/grid_rows.h"
#include "controls/grid/grid_task.h"

namespace kebu::controls {

/// What a row is sorted by. Nothing comes before numbers, numbers before dates, dates before texts.
using SortKey = std::variant<std::monostate, Decimal, Date, std::string>;

SortKey sortKeyOf(const Value& cell);

/// Sorts the rows of a grid by a column. Rows that are equal there keep their order. Reads the
/// column, sorts short runs of rows, and merges them.
class RowSort final : public GridTask {
 public:
  RowSort(GridRows& rows, std::size_t column, bool isDescending);

  bool work() override;
  /// A row is handled in several phases; it counts in parts.
  Progress progress() const override;
  /// The rows in their new order, when all is done.
  std::vector<std::int32_t> takeOrder() { return std::move(order_); }

 private:
  void readKeys();
  void sortRun();
  void merge();
  void beginMerge();
  bool isBefore(std::int32_t row, std::int32_t other) const;
  std::size_t count() const { return order_.size(); }

  GridRows& rows_;
  std::size_t column_;
  bool isDescending_;
  std::vector<SortKey> keys_;        ///< of row 1 on
  std::vector<std::int32_t> order_;  ///< rows
  std::vector<std::int32_t> merged_;
  std::size_t sorted_ = 0;  ///< so many rows are sorted in runs
  std::size_t run_ = 0;     ///< the length of a sorted run
  // The two runs that are merged: where each is read and where it ends.
  std::size_t left_ = 0;
  std::size_t leftEnd_ = 0;
  std::size_t right_ = 0;
  std::size_t rightEnd_ = 0;
  std::int64_t steps_ = 0;  ///< rows handled so far, in every phase
  std::int64_t allSteps_ = 0;
};

}  // namespace kebu::controls
