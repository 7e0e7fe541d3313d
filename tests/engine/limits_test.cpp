// Statements that are nested too deeply, or are too long, are refused: none of them may exhaust
// the stack, and none may take long.

#include <gtest/gtest.h>

#include <string>

#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"

namespace kebu::engine {
namespace {

std::string times(int count, const std::string& text) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

/// `open` so many times, the middle, `close` as many times.
std::string nested(int count, const std::string& open, const std::string& middle,
                   const std::string& close) {
  return times(count, open) + middle + times(count, close);
}

std::int32_t errorOf(Session& session, const std::string& batch) {
  try {
    session.execute(batch);
  } catch (const SqlError& error) {
    return error.nativeError();
  }
  return 0;
}

struct Case {
  const char* name;
  std::string batch;
  std::int32_t error;
};

class Limits : public testing::TestWithParam<Case> {};

TEST_P(Limits, RunOrAreRefused) {
  Session session(Database::createInMemory());
  session.execute("CREATE TABLE T (A int)");
  EXPECT_EQ(errorOf(session, GetParam().batch), GetParam().error);
  EXPECT_EQ(errorOf(session, "SELECT A FROM T"), 0) << "the session is usable afterwards";
}

constexpr int many = 20'000;

INSTANTIATE_TEST_SUITE_P(
    Of, Limits,
    testing::Values(
        Case{"Parentheses", "SELECT " + nested(50, "(", "1", ")"), 0},
        Case{"ManyParentheses", "SELECT " + nested(many, "(", "1", ")"), 191},
        Case{"ConditionParentheses", "SELECT 1 WHERE " + nested(50, "(", "1 = 1", ")"), 0},
        Case{"ManyConditionParentheses", "SELECT 1 WHERE " + nested(many, "(", "1 = 1", ")"), 191},
        Case{"Case", "SELECT " + nested(10, "CASE WHEN 1 = 1 THEN ", "1", " END"), 0},
        Case{"ManyCases", "SELECT " + nested(many, "CASE WHEN 1 = 1 THEN ", "1", " END"), 125},
        Case{"CaseInConditions",
             "SELECT " + nested(18, "CASE WHEN (((", "1 = 1", ") = 1 OR 1 = 1)) THEN 1 END"), 125},
        Case{"Casts", "SELECT " + nested(many, "CAST(", "1", " AS int)"), 191},
        Case{"Calls", "SELECT " + nested(many, "ISNULL(", "1", ", 1)"), 191},
        Case{"DoublingCalls", "SELECT " + nested(40, "NULLIF(", "1", ", 2)"), 8623},
        Case{"Subqueries", "SELECT " + nested(many, "(SELECT ", "1", ")"), 191},
        Case{"DerivedTables", nested(many, "SELECT * FROM (", "SELECT 1 AS X", ") AS D"), 191},
        Case{"BrokenSources", "SELECT * FROM " + nested(60, "((", "SELECT 1", ")"), 102},
        Case{"Minus", "SELECT " + times(many, "- ") + "1", 191},
        Case{"Not", "SELECT 1 WHERE " + times(many, "NOT ") + "1 = 1", 191},
        Case{"Sum", "SELECT 1" + times(many, " + 1"), 191},
        Case{"Texts", "SELECT 'a'" + times(390, " + 'a'"), 0},
        Case{"And", "SELECT 1 WHERE 1 = 1" + times(many, " AND 1 = 1"), 0},
        Case{"Or", "SELECT 1 WHERE 1 = 1" + times(many, " OR 1 = 1"), 0},
        Case{"In", "SELECT 1 FROM T WHERE A IN (1" + times(5000, ", 2") + ")", 0},
        Case{"Union", "SELECT 1" + times(many, " UNION SELECT 1"), 191},
        Case{"Join", "SELECT 1 FROM T T0" + times(many, " JOIN T X ON 1 = 1"), 191},
        Case{"Tables", "SELECT 1 FROM T T0" + times(many, ", T X"), 191},
        Case{"Begin", nested(many, "BEGIN ", "SELECT 1", " END"), 191},
        Case{"If", times(many, "IF 1 = 1 ") + "SELECT 1", 191},
        Case{"While", times(many, "WHILE 1 = 0 ") + "SELECT 1", 191},
        Case{"Statements", times(5000, "SELECT 1 "), 0},
        Case{"Comment", nested(many, "/*", "", "*/") + "SELECT 1", 0},
        Case{"RecursiveTable",
             "WITH C AS (SELECT 1 AS X UNION ALL SELECT X FROM C) SELECT * FROM C", 253},
        Case{"LaterTable", "WITH A AS (SELECT 1 AS X FROM B), B AS (SELECT 1 AS Y) SELECT * FROM A",
             208},
        Case{"DoublingTables",
             "WITH C0 AS (SELECT 1 AS X)" +
                 [] {
                   std::string text;
                   for (int i = 1; i < 30; ++i) {
                     const std::string last = "C" + std::to_string(i - 1);
                     text += ", C" + std::to_string(i) + " AS (SELECT A.X FROM " + last +
                             " A CROSS JOIN " + last + " B)";
                   }
                   return text;
                 }() +
                 " SELECT * FROM C29",
             8623},
        Case{"LongNumber", "SELECT " + times(60, "9"), 1007}),
    [](const auto& tested) { return tested.param.name; });

TEST(Nesting, OfModulesEndsAfterThirtyTwoLevels) {
  Session session(Database::createInMemory());
  session.execute("CREATE FUNCTION F (@n int) RETURNS int AS BEGIN RETURN dbo.F(@n + 1) END");
  session.execute("CREATE PROCEDURE P AS EXEC P");
  session.execute("CREATE VIEW V AS SELECT 1 AS X");
  session.execute("CREATE VIEW W AS SELECT X FROM V");
  session.execute("CREATE TABLE T (A int)");
  EXPECT_EQ(errorOf(session, "SELECT dbo.F(1)"), 217);
  EXPECT_EQ(errorOf(session, "EXEC P"), 217);
  EXPECT_EQ(errorOf(session, "EXEC P"), 217) << "the level is counted back after an error";
  EXPECT_EQ(errorOf(session, "ALTER VIEW V AS SELECT X FROM W"), 0);
  EXPECT_EQ(errorOf(session, "SELECT * FROM V"), 4429);
  for (int i = 0; i < 40; ++i) {
    const std::string last = i == 0 ? "T" : "V" + std::to_string(i - 1);
    const std::string view = "CREATE VIEW V" + std::to_string(i) + " AS SELECT A FROM " + last;
    EXPECT_EQ(errorOf(session, view), i <= 32 ? 0 : i == 33 ? 217 : 208) << i;
  }
}

TEST(Like, TakesNoLongerForManyPercentSigns) {
  Session session(Database::createInMemory());
  const std::string text = times(2000, "a");
  EXPECT_EQ(session.execute("SELECT 1 WHERE '" + text + "' LIKE '" + times(200, "%a") + "%b'")
                .at(0)
                .rows.size(),
            0U);
  EXPECT_EQ(session.execute("SELECT 1 WHERE '" + text + "b' LIKE '" + times(200, "%a") + "%b'")
                .at(0)
                .rows.size(),
            1U);
}

}  // namespace
}  // namespace kebu::engine
