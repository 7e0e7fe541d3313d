#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "controls/grid/grid_rows.h"

namespace kebu::controls {

/// The column by which rows are sorted.
struct SortedBy {
  std::size_t column = 0;
  bool isDescending = false;

  bool operator==(const SortedBy&) const = default;
};

/// What a user has arranged in a grid.
struct GridSettings {
  std::map<std::size_t, std::int32_t> widths;  ///< by column, in 96ths of an inch
  std::optional<SortedBy> sort;

  /// "" for nothing arranged.
  std::string toText(const GridRows& rows) const;
  /// Skips what these columns do not have.
  static GridSettings fromText(const std::string& text, const GridRows& rows);
};

}  // namespace kebu::controls
