#pragma once

namespace kebu::engine {

/// Counts what is nested, until its end.
template <class Count>
class NestingLevel {
 public:
  /// Throws what `error` gives when `deepest` levels are open already.
  template <class Error>
  NestingLevel(Count& depth, Count deepest, Error&& error) : depth_(depth) {
    if (depth == deepest) throw error();
    ++depth_;
  }
  NestingLevel(const NestingLevel&) = delete;
  NestingLevel& operator=(const NestingLevel&) = delete;
  ~NestingLevel() { --depth_; }

 private:
  Count& depth_;
};

}  // namespace kebu::engine
