#pragma once

#include <cstddef>
#include <ostream>

namespace kebu::tests {

/// The system's objects that this process holds.
struct Resources {
  int gdiObjects = 0;
  int userObjects = 0;  ///< at the least windows, menus and icons
  int handles = 0;
  std::size_t bytes = 0;  ///< in use in its heaps
};

Resources usedResources();

std::ostream& operator<<(std::ostream& out, const Resources& used);

}  // namespace kebu::tests
