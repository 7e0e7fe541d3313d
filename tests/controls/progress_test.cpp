#include "controls/progress.h"

#include <gtest/gtest.h>

namespace kebu::controls {
namespace {

using namespace std::chrono_literals;

TEST(TimeLeft, FollowsFromTheTimeTakenSoFar) {
  const TimeLeft::Clock::time_point begun{};
  const TimeLeft timeLeft(begun);
  const struct {
    std::chrono::milliseconds taken;
    Progress progress;
    std::optional<std::chrono::seconds> left;
  } cases[] = {
      {10s, {50, 100}, 10s}, {10s, {25, 100}, 30s},  {1s, {3, 10}, 3s},  // 2.33 s
      {0s, {50, 100}, {}},   {400ms, {50, 100}, {}}, {10s, {0, 100}, {}},
      {10s, {100, 100}, {}}, {10s, {0, 0}, {}},      {10h, {1, 1'000'001}, 36'000'000'000s},
  };
  for (const auto& [taken, progress, left] : cases) {
    EXPECT_EQ(timeLeft.estimate(progress, begun + taken), left)
        << progress.done << " of " << progress.total << " in " << taken.count() << " ms";
  }
}

TEST(TimeLeft, IsToldInSecondsAndThenInMinutes) {
  const auto words = [](std::optional<std::chrono::seconds> left) {
    return progressText({34'284, 100'000}, left, [](const std::string& text) { return text; });
  };
  EXPECT_EQ(words({}), "34.284 di 100.000");
  EXPECT_EQ(words(1s), "34.284 di 100.000, ancora 1 s");
  EXPECT_EQ(words(59s), "34.284 di 100.000, ancora 59 s");
  EXPECT_EQ(words(60s), "34.284 di 100.000, ancora 1 min");
  EXPECT_EQ(words(61s), "34.284 di 100.000, ancora 2 min");
}

}  // namespace
}  // namespace kebu::controls
