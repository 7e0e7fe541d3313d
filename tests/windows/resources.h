#pragma once

#include <cstddef>
#include <ostream>

namespace kebu::tests {

/// What this process holds of the system.
struct Resources {
  int windows = 0;
  int gdiObjects = 0;
  int userObjects = 0;  ///< windows, menus, icons, hooks; 0 where the system does not tell
  int handles = 0;
  std::size_t privateBytes = 0;
};

Resources usedResources();

std::ostream& operator<<(std::ostream& out, const Resources& used);

}  // namespace kebu::tests
