#include "workbench/player/scenario.h"

#include <gtest/gtest.h>

namespace kebu::workbench {
namespace {

using Words = std::vector<std::string>;

TEST(SplitWords, QuotesAndBackslashes) {
  const std::pair<const char*, Words> cases[] = {
      {"type BOX text", {"type", "BOX", "text"}},
      {"  type\tBOX   text  ", {"type", "BOX", "text"}},
      {"type BOX 'two words'", {"type", "BOX", "two words"}},
      {"type BOX ''", {"type", "BOX", ""}},
      {R"(type BOX "")", {"type", "BOX", ""}},
      {R"(sql "where a = 'x'")", {"sql", "where a = 'x'"}},
      {R"(type BOX "say \"si\"")", {"type", "BOX", "say \"si\""}},
      {R"(type BOX "C:\ERP\bin")", {"type", "BOX", "C:\\ERP\\bin"}},
      {R"(type BOX "C:\\")", {"type", "BOX", "C:\\"}},
      {R"(type BOX 'C:\ERP\')", {"type", "BOX", "C:\\ERP\\"}},
      {R"(type BOX two\ words)", {"type", "BOX", "two words"}},
      {R"(type BOX it\'s)", {"type", "BOX", "it's"}},
      {R"(type BOX a'b c'"d e"f)", {"type", "BOX", "ab cd ef"}},
      {"type BOX # a comment", {"type", "BOX"}},
      {"type BOX a#b", {"type", "BOX", "a#b"}},
      {"type BOX '#1'", {"type", "BOX", "#1"}},
      {R"(type BOX \#1)", {"type", "BOX", "#1"}},
      {"# a comment with an ' open quote", {}},
      {"", {}},
  };
  for (const auto& [line, words] : cases) EXPECT_EQ(splitWords(line), words) << line;
}

TEST(SplitWords, RefusesWhatIsNotFinished) {
  for (const char* line : {"type BOX 'open", R"(type BOX "open)", R"(type BOX "open\")", "x \\"}) {
    EXPECT_THROW(splitWords(line), StepError) << line;
  }
}

TEST(Scenario, KeepsTheLinesOfStepsWithTheirNumbers) {
  const auto scenario =
      Scenario::parse("a.scenario", "\xEF\xBB\xBFopen\r\n\r\n  # nothing\r\npage 2");
  ASSERT_EQ(scenario.lines().size(), 2U);
  EXPECT_EQ(scenario.lines()[0].words, Words{"open"});
  EXPECT_EQ(scenario.lines()[1].number, 4);
  EXPECT_EQ(scenario.lines()[1].words, (Words{"page", "2"}));
}

TEST(Scenario, NamesTheLineThatCannotBeRead) {
  try {
    Scenario::parse("a.scenario", "open\nprint 'X\n");
    FAIL();
  } catch (const StepError& error) {
    EXPECT_STREQ(error.what(), "a.scenario:2: a single quote is not closed");
  }
}

}  // namespace
}  // namespace kebu::workbench
