#include "sql/query_predicate.h"

#include <gtest/gtest.h>

#include "common/convert.h"
#include "common/error.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"

namespace kebu::sql {
namespace {

using Op = QueryOperator;

/// A table of texts and numbers, and the predicates run on it. T holds
/// 1 NULL, 2 '', 3 'abc', 4 'Abd  ', 5 'b%c', 6 'b_c', 7 'b[c', 8 'd''e'.
class QueryPredicateTest : public testing::Test {
 protected:
  QueryPredicateTest() {
    engine::Session(database).execute(
        "CREATE TABLE R (ID int NOT NULL PRIMARY KEY, T varchar(20) NULL, N int NULL)"
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

  std::shared_ptr<engine::Database> database = engine::Database::createInMemory();
};

TEST_F(QueryPredicateTest, PredicatesSelectWhatTheirOperatorsSay) {
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

TEST_F(QueryPredicateTest, ANumericColumnTakesWholeNumbersOnly) {
  for (const char* text :
       {"x", "1.5", "1,5", "1 OR 1=1", "- 1", "-", "1e3", "+1", "1234567890123456789"}) {
    EXPECT_THROW(composePredicate({"N", true}, {Op::Equal, {text}}), RuntimeError) << text;
    EXPECT_THROW(composePredicate({"N", true}, {Op::OneOf, {"1", text}}), RuntimeError) << text;
  }
}

}  // namespace
}  // namespace kebu::sql
