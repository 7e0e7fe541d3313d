#include "workbench/cli/command_line.h"

#include <gtest/gtest.h>

namespace kebu::workbench {
namespace {

using Words = std::vector<std::string>;

std::string complaintOf(const Words& words) {
  try {
    CommandLine(words, {"--company", "-e"}).number("--company", 1);
    return "";
  } catch (const CommandError& error) {
    return error.what();
  }
}

TEST(CommandLine, OptionsStandAnywhere) {
  const CommandLine line({"--company", "2", "a.scenario", "-e", "-1"}, {"--company", "-e"});
  EXPECT_EQ(line.number("--company", 1), 2);
  EXPECT_EQ(line.option("-e"), "-1");
  EXPECT_EQ(line.operands(), Words{"a.scenario"});
  EXPECT_EQ(CommandLine({"a"}, {"--company"}).number("--company", 1), 1);
  EXPECT_EQ(CommandLine({"-"}, {}).operands(), Words{"-"});
  const CommandLine flagged({"--user", "a"}, {"--company"}, {"--user", "--clean"});
  EXPECT_TRUE(flagged.has("--user"));
  EXPECT_FALSE(flagged.has("--clean"));
  EXPECT_EQ(flagged.operands(), Words{"a"});
}

TEST(CommandLine, ToldInOneLineWhatIsWrong) {
  EXPECT_EQ(complaintOf({"--firm", "2"}), "unknown option --firm");
  EXPECT_EQ(complaintOf({"x", "--company"}), "option --company wants a value");
  EXPECT_EQ(complaintOf({"-e", "a", "-e", "b"}), "option -e is given twice");
  for (const char* wrong : {"one", "0", "-1", "2x", "", "99999999999"}) {
    EXPECT_EQ(complaintOf({"--company", wrong}),
              "option --company wants a number, not \"" + std::string(wrong) + "\"");
  }
}

}  // namespace
}  // namespace kebu::workbench
