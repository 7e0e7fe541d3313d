#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// Every target defines it; libFuzzer and the plain driver call it with one input after the other.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace kebu::tests {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Something did not hold for the input: ends the program.
[[noreturn]] inline void broken(const std::string& what) {
  std::fprintf(stderr, "fuzz: %s\n", what.c_str());
  std::abort();
}

inline void require(bool holds, const char* what) {
  if (!holds) broken(what);
}

/// Whether the bytes are UTF-8, as all text inside the system is.
bool isUtf8(std::string_view text);

}  // namespace kebu::tests
