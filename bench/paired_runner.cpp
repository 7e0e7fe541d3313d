#include "bench/paired_runner.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <vector>

namespace kebu::bench {

namespace {

/// The value below which `share` of the values lie.
double quantile(std::vector<double> values, double share) {
  const auto at =
      static_cast<std::size_t>(std::lround(share * static_cast<double>(values.size() - 1)));
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(at), values.end());
  return values[at];
}

double median(const std::vector<double>& values) {
  return quantile(values, 0.5);
}

/// Microseconds, in the unit that reads best.
std::string duration(double microseconds) {
  constexpr double thousand = 1000;
  std::ostringstream text;
  text << std::fixed << std::setprecision(1);
  if (microseconds < thousand) {
    text << microseconds << " us";
  } else {
    text << microseconds / thousand << " ms";
  }
  return text.str();
}

double microseconds(Nanoseconds time) {
  return std::chrono::duration<double, std::micro>(time).count();
}

}  // namespace

void PairedRunner::compare(const Comparison& comparison) {
  if (!wants(comparison.name)) return;
  // The first run reads files and fills caches.
  comparison.subject();
  comparison.floor();

  std::vector<double> subjects;
  std::vector<double> floors;
  std::vector<double> ratios;
  for (int pair = 0; pair < comparison.pairs; ++pair) {
    // Who goes first changes, so that neither always finds the other's leftovers.
    const bool subjectFirst = pair % 2 == 0;
    if (subjectFirst) subjects.push_back(microseconds(comparison.subject()));
    floors.push_back(microseconds(comparison.floor()));
    if (!subjectFirst) subjects.push_back(microseconds(comparison.subject()));
    ratios.push_back(subjects.back() / floors.back());
  }

  ++measured_;
  constexpr double quarter = 0.25;
  const double lower = quantile(ratios, quarter);
  std::cout << "  " << std::left << std::setw(34) << comparison.name << std::right << std::fixed
            << std::setprecision(2) << std::setw(6) << median(ratios) << " times (" << lower
            << " to " << quantile(ratios, 1 - quarter) << ")";
  if (comparison.aim) {
    const bool isAbove = lower > *comparison.aim;
    if (isAbove) ++above_;
    std::cout << ", aim " << *comparison.aim << (isAbove ? "  ABOVE" : "");
  }
  std::cout << "\n      " << duration(median(subjects)) << " against " << duration(median(floors))
            << ", " << comparison.floorName << ", " << comparison.pairs << " pairs" << std::endl;
}

}  // namespace kebu::bench
