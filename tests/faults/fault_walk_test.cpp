// Walks through every statement of every scenario: plays the scenario again with that
// statement's first run failing, once for each answer that the error box offers. A page is covered
// as soon as a scenario uses it. Then pairs of faults by chance.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "tests/faults/faulty_run.h"
#include "tests/support/environment.h"
#include "tests/support/random.h"
#include "workbench/company/company.h"

namespace kebu::tests {
namespace {

using workbench::answerName;
using workbench::Scenario;

namespace fs = std::filesystem;

const engine::Database& demo() {
  static const std::shared_ptr<engine::Database> company = workbench::demoCompany();
  return *company;
}

std::string contentOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The company from the line "#! --company N" with which a scenario may begin.
std::int32_t companyOf(const std::string& text) {
  const std::string option = "#! --company ";
  return text.starts_with(option) ? std::stoi(text.substr(option.size())) : 1;
}

class FaultWalk : public testing::TestWithParam<fs::path> {
 protected:
  FaultWalk()
      : text_(contentOf(GetParam())),
        company_(companyOf(text_)),
        scenario_(Scenario::parse(GetParam().filename().string(), text_)) {}

  /// Plays the scenario without faults.
  void playUsually();
  void walk(std::size_t position, msgbox::Answer answer);

  std::string text_;
  std::int32_t company_;
  Scenario scenario_;
  Lines statements_;  ///< of a run without faults
  Lines rows_;        ///< the same
};

/// "Errore n. NUMBER in PROCEDURE", the description, and more lines.
struct ErrorText {
  explicit ErrorText(const std::string& text) {
    const std::string lineEnd = "\r\n";
    const std::size_t second = text.find(lineEnd) + lineEnd.size();
    const std::size_t third = text.find(lineEnd, second);
    std::istringstream words(text.substr(0, second));
    std::string skipped;
    words >> skipped >> skipped >> number >> skipped >> procedure;
    description = text.substr(second, third - second);
  }
  std::int32_t number = 0;
  std::string procedure;
  std::string description;
};

/// The failing statement was reported in one box, with its number, procedure and description.
void expectOneBox(const FaultyRun& run) {
  const Lines& errors = run.errors();
  ASSERT_FALSE(errors.empty()) << "the fault was not reported";
  const ErrorText first(errors.front());
  EXPECT_NE(first.number, 0) << errors.front();
  EXPECT_NE(first.procedure, "") << errors.front();
  EXPECT_EQ(std::count_if(errors.begin(), errors.end(),
                          [](const std::string& error) {
                            return ErrorText(error).description == FaultyStatements::description;
                          }),
            1);
  EXPECT_EQ(first.description, FaultyStatements::description);
}

/// The statements before the fault are the usual ones.
void expectSameUntil(std::size_t position, const Lines& usual, const Lines& found) {
  ASSERT_GE(found.size(), position);
  const auto end = static_cast<std::ptrdiff_t>(position);
  EXPECT_EQ(Lines(found.begin(), found.begin() + end), Lines(usual.begin(), usual.begin() + end));
}

/// No error has left the plug-in; the player would report one by its number.
void expectNothingEscaped(const FaultyRun& run) {
  EXPECT_EQ(run.complaints().find(": error "), std::string::npos) << run.complaints();
}

/// The user closes the window, opens it again and finds the page as usual.
void expectWorkingWindow(FaultyRun& run) {
  run.dropAnswers();
  if (run.isOpen()) {
    EXPECT_TRUE(run.play(Scenario::parse("closing", "answer no\nclose")));
    run.dropAnswers();
  }
  ASSERT_FALSE(run.isOpen()) << "the window cannot be closed";
  // Undoing what could not be saved may have reported once more what could not be loaded.
  const std::size_t errors = run.errors().size();
  EXPECT_TRUE(run.play(Scenario::parse("afterwards",
                                       "open\n"
                                       "expect GRPMAIN_PAR visible = true\n"
                                       "print GRPMAIN_PAR\n"
                                       "page 2\nexpect GRPMAIN_LISTINI visible = true\n"
                                       "page 3\nexpect QGRID_DEP rows = 8\n"
                                       "close")))
      << run.complaints();
  EXPECT_EQ(run.errors().size(), errors) << run.errors().back();
}

void FaultWalk::walk(std::size_t position, msgbox::Answer answer) {
  SCOPED_TRACE(answerName(answer) + " at statement " + std::to_string(position) + ": " +
               statements_[position - 1]);
  FaultyRun run(demo().clone(), company_, {{position, answer}});
  const bool played = run.play(scenario_);
  expectOneBox(run);
  expectSameUntil(position, statements_, run.statements());
  if (answer == msgbox::retry) {
    Lines repeated = statements_;
    repeated.insert(repeated.begin() + static_cast<std::ptrdiff_t>(position),
                    statements_[position - 1]);
    EXPECT_TRUE(played) << run.complaints();
    EXPECT_EQ(run.errors().size(), 1);
    EXPECT_EQ(run.statements(), repeated);
    EXPECT_EQ(writtenRows(run.session()), rows_);
  }
  expectWorkingWindow(run);
  expectNothingEscaped(run);
}

void FaultWalk::playUsually() {
  FaultyRun usual(demo().clone(), company_, {});
  ASSERT_TRUE(usual.play(scenario_)) << usual.complaints();
  ASSERT_EQ(usual.errors(), Lines());
  statements_ = usual.statements();
  rows_ = writtenRows(usual.session());
  ASSERT_FALSE(statements_.empty());
}

/// The statements of opening and closing the window. Every scenario has them; those of company 1
/// are walked through once, with the scenario opening, unless KEBU_FAULT_WALK is "all".
std::set<std::string> openingStatements() {
  FaultyRun run(demo().clone(), 1, {});
  EXPECT_TRUE(run.play(Scenario::parse("opening", "open\nclose")));
  return {run.statements().begin(), run.statements().end()};
}

TEST_P(FaultWalk, EveryStatementCanFail) {
  ASSERT_NO_FATAL_FAILURE(playUsually());
  const char* const extent = std::getenv("KEBU_FAULT_WALK");
  const bool isWhole = GetParam().stem() == "opening" || (extent && extent == std::string("all"));
  std::set<std::string> walked = isWhole ? std::set<std::string>() : openingStatements();
  for (std::size_t position = 1; position <= statements_.size(); ++position) {
    if (!walked.insert(statements_[position - 1]).second) continue;
    for (const auto answer : {msgbox::abort, msgbox::retry, msgbox::ignore}) walk(position, answer);
  }
}

/// Two faults by chance. The second one may be a statement that only the first fault brings about.
Faults someFaults(Random& random, std::size_t statements) {
  constexpr msgbox::Answer answers[] = {msgbox::abort, msgbox::retry, msgbox::ignore};
  const auto some = [&](std::size_t after) {
    const std::size_t rest = statements > after ? statements - after : 1;
    return Fault{after + 1 + random.below(rest), random.of(answers), random.oneIn(2)};
  };
  const Fault first = some(0);
  // Often the next statements are those that depend on the one that failed.
  const Fault second = random.oneIn(2) ? Fault{first.position + 1 + random.below(3),
                                               random.of(answers), random.oneIn(2)}
                                       : some(first.position);
  return {first, second};
}

// Pairs of faults, and answers that are lost. KEBU_FAULT_PAIRS tells how many of a scenario are
// tried, KEBU_FAULT_SEED with which seed.
TEST_P(FaultWalk, TwoStatementsCanFail) {
  ASSERT_NO_FATAL_FAILURE(playUsually());
  constexpr std::uint64_t fewPairs = 3;
  const std::uint64_t seed = numberFrom("KEBU_FAULT_SEED", 1);
  RecordProperty("seed", static_cast<int>(seed));
  for (std::uint64_t i = 0; i < numberFrom("KEBU_FAULT_PAIRS", fewPairs); ++i) {
    Random random(seed + i);
    const Faults faults = someFaults(random, statements_.size());
    std::string told = "KEBU_FAULT_SEED=" + std::to_string(seed + i) + " KEBU_FAULT_PAIRS=1:";
    for (const Fault& fault : faults) {
      told += ' ' + answerName(fault.answer) + " at " + std::to_string(fault.position) +
              (fault.isCarriedOut ? ", carried out;" : ", not run;");
    }
    SCOPED_TRACE(told);
    FaultyRun run(demo().clone(), company_, faults);
    run.play(scenario_);
    run.endFaults();  // the second may not have come
    EXPECT_FALSE(run.errors().empty()) << "the fault was not reported";
    expectWorkingWindow(run);
    expectNothingEscaped(run);
    if (HasFailure()) return;
  }
}

std::vector<fs::path> scenarios() {
  std::vector<fs::path> paths;
  for (const char* folder : {FAULT_SCENARIOS, WORKBENCH_SCENARIOS}) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() == ".scenario") paths.push_back(entry.path());
    }
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

INSTANTIATE_TEST_SUITE_P(All, FaultWalk, testing::ValuesIn(scenarios()),
                         [](const auto& path) { return path.param.stem().string(); });

}  // namespace
}  // namespace kebu::tests
