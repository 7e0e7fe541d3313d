#include "controls/query_operators.h"

#include <gtest/gtest.h>

#include "common/error.h"
#include "controls/saved_filter.h"

namespace kebu::controls {
namespace {

using Op = QueryOperator;

TEST(QueryOperators, TheTableStandsInTheOrderOfTheOperators) {
  for (const OperatorTraits& traits : queryOperators()) {
    EXPECT_EQ(traitsOf(traits.op).code, traits.code);
    EXPECT_EQ(operatorByCode(traits.code), traits.op);
  }
  EXPECT_EQ(operatorByCode("like"), std::nullopt);
}

TEST(QueryList, IsTypedWithSemicolonsAndQuotes) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"", {}},
      {" ; ;", {}},
      {"A", {"A"}},
      {" A ;B C; ", {"A", "B C"}},
      {R"("A;B"; C)", {"A;B", "C"}},
      {R"("say ""x"" ")", {R"(say "x" )"}},
      {R"(5" tubo; 6")", {R"(5" tubo)", R"(6")"}},
      {R"("open; B)", {"open; B"}},
  };
  for (const auto& [text, items] : cases) {
    EXPECT_EQ(splitList(text), items) << text;
    EXPECT_EQ(splitList(joinList(items)), items) << joinList(items);
  }
}

TEST(SavedFilter, ComesBackAsItWasWritten) {
  const std::vector<SavedCondition> conditions{
      {"A", {Op::Equal, {"x\ty\n\\n"}}},
      {"B", {Op::Range, {"", "2"}}},
      {"C", {Op::Range, {"1", ""}}},
      {"D", {Op::NotEmpty, {}}},
      {"E", {Op::OneOf, {"a", "b;c", "\r"}}},
      {"F", {Op::Equal, {""}}},
      {"G", {Op::Equal, {"\\"}}},
  };
  EXPECT_EQ(readFilter(writeFilter(conditions)), conditions);
  EXPECT_FALSE(writeFilter({}).empty()) << "an empty text tells that nothing is saved";
  EXPECT_TRUE(readFilter(writeFilter({})).empty());
  for (const char* text : {"", "x", "ENHQUERY 2\nA\t=\t1", "ENHQUERY 1\nA\tlike\t1",
                           "ENHQUERY 1\n\t=\t1", "ENHQUERY 1\nA"}) {
    EXPECT_THROW(readFilter(text), RuntimeError) << text;
  }
}

}  // namespace
}  // namespace kebu::controls
