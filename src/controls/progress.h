#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "controls/control.h"

namespace kebu::controls {

/// How much of long work is done, in the rows or other things that the user counts.
struct Progress {
  std::int64_t done = 0;
  std::int64_t total = 0;

  bool isComplete() const { return done >= total; }
};

/// Estimates how long work will still take by how long it has taken so far.
class TimeLeft {
 public:
  using Clock = std::chrono::steady_clock;

  explicit TimeLeft(Clock::time_point begun = Clock::now()) : begun_(begun) {}
  /// Rounded up; nothing when all is done, or too little to tell.
  std::optional<std::chrono::seconds> estimate(const Progress& progress,
                                               Clock::time_point now = Clock::now()) const;

 private:
  Clock::time_point begun_;
};

/// "34.284 di 100.000, ancora 12 s"; from a minute on in minutes.
std::string progressText(const Progress& progress, const std::optional<std::chrono::seconds>& left,
                         const Translator& translator);

/// A whole number as people read it: "1.000.000".
std::string groupedNumber(std::int64_t number);

}  // namespace kebu::controls
