#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kebu::workbench {

/// An open look-up list as the user sees it.
class ShownList {
 public:
  virtual ~ShownList() = default;

  virtual std::string title() = 0;
  virtual std::vector<std::string> captions() = 0;
  virtual std::int32_t rowCount() = 0;
  /// Row from 1, column from 0.
  virtual std::string cellText(std::int32_t row, std::size_t column) = 0;
  /// GestureRefused when there is no such row.
  virtual void choose(std::int32_t row) = 0;
};

}  // namespace kebu::workbench
