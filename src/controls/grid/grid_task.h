#pragma once

#include <cstdint>

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
  /// How much is done, from 0 to 100.
  virtual std::int32_t percent() const = 0;
};

/// How many rows a slice reads of a column.
inline constexpr std::int32_t rowsOfASlice = 8192;

inline std::int32_t percentOf(std::int64_t done, std::int64_t total) {
  return total <= 0 ? 100 : static_cast<std::int32_t>(100 * done / total);
}

}  // namespace kebu::controls
