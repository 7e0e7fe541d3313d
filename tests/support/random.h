#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace kebu::tests {

/// Random choices that are the same for the same seed with every standard library.
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}

  /// From 0 to `count` - 1; `count` is not 0.
  std::size_t below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
  /// True once in `times`.
  bool oneIn(std::size_t times) { return below(times) == 0; }
  /// An element of a container that is not empty.
  template <class Container>
  const auto& of(const Container& container) {
    return *(std::begin(container) + static_cast<std::ptrdiff_t>(below(std::size(container))));
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace kebu::tests
