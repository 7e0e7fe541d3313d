#include "controls/progress.h"

#include <cstddef>

#include "common/locale.h"

namespace kebu::controls {

namespace {

using namespace std::chrono_literals;

/// Before that the first slices tell too little.
constexpr auto shortestMeasure = 500ms;

}  // namespace

std::optional<std::chrono::seconds> TimeLeft::estimate(const Progress& progress,
                                                       Clock::time_point now) const {
  const auto taken = now - begun_;
  if (progress.done <= 0 || progress.isComplete() || taken < shortestMeasure) return std::nullopt;
  const double rate =
      std::chrono::duration<double>(taken).count() / static_cast<double>(progress.done);
  const std::chrono::duration<double> left(rate *
                                           static_cast<double>(progress.total - progress.done));
  return std::chrono::ceil<std::chrono::seconds>(left);
}

std::string progressText(const Progress& progress, const std::optional<std::chrono::seconds>& left,
                         const Translator& translator) {
  std::string text =
      groupedNumber(progress.done) + ' ' + translator("di") + ' ' + groupedNumber(progress.total);
  if (!left) return text;
  text += ", " + translator("ancora") + ' ';
  if (*left < 1min) return text + std::to_string(left->count()) + " s";
  return text + groupedNumber(std::chrono::ceil<std::chrono::minutes>(*left).count()) + " min";
}

std::string groupedNumber(std::int64_t number) {
  std::string text = std::to_string(number);
  const std::string separator(1, runtimeLocale().groupSeparator);
  const std::ptrdiff_t sign = number < 0 ? 1 : 0;
  for (auto at = static_cast<std::ptrdiff_t>(text.size()) - 3; at > sign; at -= 3) {
    text.insert(static_cast<std::size_t>(at), separator);
  }
  return text;
}

}  // namespace kebu::controls
