#pragma once

#include <span>
#include <string>

namespace kebu::tests {

struct NastyValue {
  const char* name;
  std::string text;  ///< may hold zero bytes, and may not be UTF-8
};

/// Texts that break a statement, a conversion or a display which does not expect them.
std::span<const NastyValue> nastyValues();

}  // namespace kebu::tests
