#pragma once

#include <string>
#include <vector>

#include "windows/support/variant.h"

namespace kebu::tests {

struct NastyVariant {
  std::string name;
  windows::Variant value;  ///< may hold what no copy can be made of
};

/// What a host might give: every kind of VARIANT with values at its ends and beyond, and the nasty
/// values of tests/values as BSTRs.
std::vector<NastyVariant> nastyVariants();

}  // namespace kebu::tests
