#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace kebu::bench {

using Nanoseconds = std::chrono::nanoseconds;

/// How long `work` takes.
template <class Work>
Nanoseconds timeOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  std::forward<Work>(work)();
  return std::chrono::steady_clock::now() - start;
}

/// What is measured, and its floor: the same work without what is measured. Each is done
/// once a call and gives the time of the part that counts.
struct Comparison {
  std::string name;
  std::string floorName;
  std::function<Nanoseconds()> subject;
  std::function<Nanoseconds()> floor;
  int pairs = 100;
  /// What the ratio should not exceed.
  std::optional<double> aim = std::nullopt;
};

/// Measures comparisons and prints a line for each. Subject and floor take turns in one process, so
/// that a slow moment of the machine meets both; each pair gives a ratio. Printed are the median
/// times, the median ratio and its quartiles. A comparison is above its aim when three quarters of
/// the pairs are.
class PairedRunner {
 public:
  /// Measures only comparisons whose name contains `filter`.
  explicit PairedRunner(std::string filter) : filter_(std::move(filter)) {}

  /// Whether a comparison of that name is measured. Asked before costly preparations.
  bool wants(const std::string& name) const { return name.find(filter_) != std::string::npos; }
  void compare(const Comparison& comparison);
  bool isAnyAboveItsAim() const { return above_ > 0; }
  int measured() const { return measured_; }

 private:
  std::string filter_;
  int measured_ = 0;
  int above_ = 0;
};

}  // namespace kebu::bench
