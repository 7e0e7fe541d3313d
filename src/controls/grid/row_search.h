#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/grid/grid_rows.h"
#include "controls/grid/grid_task.h"

namespace kebu::controls {

/// Finds the rows that contain a text, case and accents aside: in one column, or in any column that
/// the user sees.
class RowSearch final : public GridTask {
 public:
  RowSearch(GridRows& rows, const std::string& text, std::optional<std::size_t> column);

  bool work() override;
  Progress progress() const override { return {read_, total_}; }
  /// By row, from 1; what has been found so far.
  bool isFound(std::int32_t row) const { return found_[static_cast<std::size_t>(row)]; }
  std::int32_t foundRows() const { return foundRows_; }
  /// How many rows have been read, from the first one on.
  std::int32_t readRows() const { return read_; }

 private:
  GridRows& rows_;
  std::string wanted_;
  std::vector<std::size_t> columns_;
  std::int32_t total_ = 0;
  std::int32_t read_ = 0;  ///< rows
  std::vector<bool> found_;
  std::int32_t foundRows_ = 0;
};

}  // namespace kebu::controls
