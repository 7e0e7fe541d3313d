#pragma once

#include <cstdint>

#include "controls/progress.h"

namespace kebu::controls {

/// Long work on the rows of a grid, done in slices: between two of them the window obeys the user,
/// who may cancel it.
class GridTask {
 public:
  GridTask() = default;
  GridTask(const GridTask&) = delete;
  GridTask& operator=(const GridTask&) = delete;
  virtual ~GridTask() = default;

  /// Does a slice, a few hundredths of a second long; true when all is done.
  virtual bool work() = 0;
  /// In rows.
  virtual Progress progress() const = 0;
};

/// How many rows a slice reads of a column.
inline constexpr std::int32_t rowsOfASlice = 8192;

}  // namespace kebu::controls
