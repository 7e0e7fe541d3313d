#include "controls/query_condition.h"

#include "controls/saved_filter.h"
#include "tests/controls/control_fixture.h"

namespace kebu::controls {
namespace {

using Op = QueryOperator;

/// A table of texts and numbers, and the predicates run on it. T holds
/// 1 NULL, 2 '', 3 'abc', 4 'Abd  ', 5 'b%c', 6 'b_c', 7 'b[c', 8 'd''e'.
class QueryConditionTest : public ControlTest {
 protected:
  QueryConditionTest() {
    run("CREATE TABLE R (ID int NOT NULL PRIMARY KEY, T varchar(20) NULL, N int NULL)"
        " INSERT INTO R VALUES (1, NULL, NULL), (2, '', 0), (3, 'abc', 7), (4, 'Abd  ', -7),"
        " (5, 'b%c', 70), (6, 'b_c', 700), (7, 'b[c', 3), (8, 'd''e', 4)");
  }

  std::string ids(const QueryColumn& column, const QueryCondition& condition) {
    const std::string predicate = composePredicate(column, condition);
    std::string found;
    const std::string where = predicate.empty() ? "" : " AND " + predicate;
    const auto result =
        engine::Session(database).execute("SELECT ID FROM R WHERE 1 = 1" + where + " ORDER BY ID");
    for (const auto& row : result.front().rows) found += toDisplay(row.front());
    return found;
  }
};

TEST_F(QueryConditionTest, PredicatesSelectWhatTheirOperatorsSay) {
  struct Case {
    Op op;
    std::vector<std::string> values;
    const char* ids;
  };
  const Case texts[] = {
      {Op::Any, {}, "12345678"},           {Op::Any, {"abc"}, "12345678"},
      {Op::Equal, {"ABC"}, "3"},           {Op::Equal, {""}, "12345678"},
      {Op::Equal, {"d'e"}, "8"},           {Op::Equal, {"' OR 1 = 1 --"}, ""},
      {Op::Different, {"abc"}, "1245678"}, {Op::Range, {"abc", "abz"}, "34"},
      {Op::Range, {"abd"}, "45678"},       {Op::Range, {"", "abd"}, "234"},
      {Op::Range, {"", ""}, "12345678"},   {Op::Starts, {"AB"}, "34"},
      {Op::Starts, {"b%"}, "5"},           {Op::Starts, {"b_"}, "6"},
      {Op::Starts, {"b["}, "7"},           {Op::Starts, {"c"}, ""},
      {Op::Contains, {"c"}, "3567"},       {Op::Contains, {"'"}, "8"},
      {Op::Contains, {"%_["}, ""},         {Op::OneOf, {"abc", "d'e", "x"}, "38"},
      {Op::OneOf, {}, "12345678"},         {Op::Empty, {}, "12"},
      {Op::NotEmpty, {}, "345678"},
  };
  for (const Case& each : texts) {
    EXPECT_EQ(ids({"T", false}, {each.op, each.values}), each.ids)
        << composePredicate({"T", false}, {each.op, each.values});
  }
  const Case numbers[] = {
      {Op::Equal, {"007"}, "3"},        {Op::Equal, {"-0"}, "2"},
      {Op::Equal, {"-7"}, "4"},         {Op::Different, {"7"}, "1245678"},
      {Op::Range, {"3", "70"}, "3578"}, {Op::Range, {"", "0"}, "24"},
      {Op::OneOf, {"7", "4"}, "38"},    {Op::Empty, {}, "1"},
      {Op::NotEmpty, {}, "2345678"},    {Op::Equal, {"999999999999999999"}, ""},
  };
  for (const Case& each : numbers) {
    EXPECT_EQ(ids({"N", true}, {each.op, each.values}), each.ids)
        << composePredicate({"N", true}, {each.op, each.values});
  }
}

TEST_F(QueryConditionTest, ANumericColumnTakesWholeNumbersOnly) {
  for (const char* text :
       {"x", "1.5", "1,5", "1 OR 1=1", "- 1", "-", "1e3", "+1", "1234567890123456789"}) {
    EXPECT_FALSE(isWholeNumber(text)) << text;
    EXPECT_THROW(composePredicate({"N", true}, {Op::Equal, {text}}), RuntimeError) << text;
    EXPECT_THROW(composePredicate({"N", true}, {Op::OneOf, {"1", text}}), RuntimeError) << text;
  }
}

TEST(QueryRange, IsReversedOnlyWhereEveryCollationSaysSo) {
  struct Case {
    bool isNumeric;
    const char* first;
    const char* second;
    bool reversed;
  };
  const Case cases[] = {
      {true, "7", "5", true},
      {true, "5", "7", false},
      {true, "5", "5", false},
      {true, "10", "9", true},
      {true, "9", "10", false},
      {true, "0010", "9", true},
      {true, "-1", "-2", true},
      {true, "-2", "1", false},
      {true, "1", "-2", true},
      {true, "", "1", false},
      {true, "1", "", false},
      {false, "B", "a", true},
      {false, "a", "B", false},
      {false, "abc", "ABC ", false},
      {false, "abcd", "abc", true},
      {false, "abc", "abcd", false},
      {false, "A", "9", true},
      {false, "VIT-0032", "VIT-0001", true},
      // Where a sign or an accent decides, the database may see it either way.
      {false, "A-1", "A", false},
      {false, "A-B", "AA", false},
      {false, "è", "a", false},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(isReversed({"C", each.isNumeric}, each.first, each.second), each.reversed)
        << each.first << " to " << each.second;
  }
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
      {"A", {Op::Equal, {"x\ty\n\\n"}}},      {"B", {Op::Range, {"", "2"}}},
      {"C", {Op::Range, {"1", ""}}},          {"D", {Op::NotEmpty, {}}},
      {"E", {Op::OneOf, {"a", "b;c", "\r"}}},
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
