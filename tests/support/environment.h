#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

namespace kebu::tests {

/// The number in an environment variable, by which a long run is told its seed and length.
inline std::uint64_t numberFrom(const char* variable, std::uint64_t usual) {
  const char* const text = std::getenv(variable);
  return text ? std::stoull(text) : usual;
}

}  // namespace kebu::tests
