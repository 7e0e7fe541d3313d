#include "common/trap.h"

#include <gtest/gtest.h>

#include <deque>
#include <new>
#include <stdexcept>
#include <vector>

namespace kebu {
namespace {

/// Answers as told, with Abort once the answers have run out, and keeps what it was shown.
class FakeReporter : public ErrorReporter {
 public:
  struct Report {
    std::string procedure;
    std::int32_t number;
    std::string description;
  };

  std::int16_t VisualizzaErrore(const std::string& procedure, const RuntimeError& error) override {
    reports.push_back({procedure, error.number(), error.description()});
    if (answers.empty()) return 3;
    const std::int16_t answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::deque<std::int16_t> answers;
  std::vector<Report> reports;
};

constexpr std::int16_t abort = 3;
constexpr std::int16_t retry = 4;
constexpr std::int16_t ignore = 5;

[[noreturn]] void fail() {
  throw RuntimeError(-2147217900, "no such table");
}

TEST(Trap, GivesTheBodysResultWhenNothingFails) {
  FakeReporter reporter;
  const int sum = trap(reporter, "P", [](Steps& step) {
    const int two = step([] { return 2; });
    step([] {});
    return two + 3;
  });
  EXPECT_EQ(sum, 5);
  EXPECT_TRUE(reporter.reports.empty());
}

TEST(Trap, RetryRunsTheFailingStatementAgainAndOnlyIt) {
  FakeReporter reporter;
  reporter.answers = {retry, retry};
  int before = 0;
  int calls = 0;
  const int result = trap(reporter, "P", [&](Steps& step) {
    step([&] { ++before; });
    return step([&] {
      if (++calls < 3) fail();
      return 7;
    });
  });
  EXPECT_EQ(result, 7);
  EXPECT_EQ(calls, 3);
  EXPECT_EQ(before, 1);
  ASSERT_EQ(reporter.reports.size(), 2u);
  EXPECT_EQ(reporter.reports[1].procedure, "P");
  EXPECT_EQ(reporter.reports[1].number, -2147217900);
  EXPECT_EQ(reporter.reports[1].description, "no such table");
}

TEST(Trap, IgnoreGoesOnWithTheDefaultValue) {
  FakeReporter reporter;
  reporter.answers = {ignore, ignore};
  int result = -1;
  bool wentOn = false;
  trap(reporter, "P", [&](Steps& step) {
    result = step([]() -> int { fail(); });
    step([] { fail(); });
    wentOn = true;
  });
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(wentOn);
}

TEST(Trap, EveryOtherAnswerLeavesTheProcedure) {
  for (const std::int16_t answer : {abort, std::int16_t{0}, std::int16_t{1}, std::int16_t{-1}}) {
    FakeReporter reporter;
    reporter.answers = {answer};
    bool wentOn = false;
    const bool result = trap(
        reporter, "P",
        [&](Steps& step) {
          step([] { fail(); });
          wentOn = true;
          return false;
        },
        true);
    EXPECT_FALSE(wentOn) << answer;
    EXPECT_TRUE(result) << answer;
    EXPECT_EQ(reporter.reports.size(), 1u) << answer;
  }
}

TEST(Trap, AnErrorOutsideAStepIsReportedAndLeavesWhateverTheAnswer) {
  FakeReporter reporter;
  reporter.answers = {retry};
  int runs = 0;
  const std::string result = trap(
      reporter, "P",
      [&](Steps&) {
        if (++runs > 0) fail();
        return std::string("done");
      },
      "left");
  EXPECT_EQ(result, "left");
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(reporter.reports.size(), 1u);
}

TEST(Trap, ForeignExceptionsBecomeRuntimeErrors) {
  FakeReporter reporter;
  reporter.answers = {ignore, ignore};
  trap(reporter, "P", [](Steps& step) {
    step([] { throw std::runtime_error("lost"); });
    step([] { throw std::bad_alloc(); });
    throw 42;
  });
  ASSERT_EQ(reporter.reports.size(), 3u);
  EXPECT_EQ(reporter.reports[0].number, 51);
  EXPECT_NE(reporter.reports[0].description.find("lost"), std::string::npos);
  EXPECT_EQ(reporter.reports[1].number, 7);
  EXPECT_EQ(reporter.reports[2].number, 51);
}

TEST(Trap, AReporterThatFailsIsAnAbort) {
  class : public ErrorReporter {
    std::int16_t VisualizzaErrore(const std::string&, const RuntimeError&) override { fail(); }
  } broken;
  bool wentOn = false;
  EXPECT_NO_THROW(trap(broken, "P", [&](Steps& step) {
    step([] { fail(); });
    wentOn = true;
  }));
  EXPECT_FALSE(wentOn);
  EXPECT_NO_THROW(trap(broken, "P", [](Steps&) { fail(); }));
}

TEST(Trap, ANestedProcedureHandlesItsOwnErrors) {
  FakeReporter reporter;
  std::vector<std::string> trace;
  trap(reporter, "Outer", [&](Steps& step) {
    step([&] {
      trap(reporter, "Inner", [&](Steps& inner) {
        inner([] { fail(); });
        trace.emplace_back("inner went on");
      });
      trace.emplace_back("step went on");
    });
    trace.emplace_back("outer went on");
  });
  EXPECT_EQ(trace, (std::vector<std::string>{"step went on", "outer went on"}));
  ASSERT_EQ(reporter.reports.size(), 1u);
  EXPECT_EQ(reporter.reports[0].procedure, "Inner");
}

TEST(Trap, AnOuterStepFailingInsideANestedProcedureLeavesTheOuterOne) {
  FakeReporter reporter;
  std::vector<std::string> trace;
  trap(reporter, "Outer", [&](Steps& outer) {
    outer([&] {
      trap(reporter, "Inner", [&](Steps& inner) {
        inner([&] { outer([] { fail(); }); });
        trace.emplace_back("inner went on");
      });
      trace.emplace_back("step went on");
    });
    trace.emplace_back("outer went on");
  });
  EXPECT_TRUE(trace.empty());
  ASSERT_EQ(reporter.reports.size(), 1u) << "leaving is no error of the procedures on the way";
  EXPECT_EQ(reporter.reports[0].procedure, "Outer");
}

}  // namespace
}  // namespace kebu
