#include <gtest/gtest.h>

#include "workbench/acceptance/database_contents.h"
#include "workbench/acceptance/sql_test_file.h"
#include "workbench/company/company.h"
#include "workbench/engine/execution/database.h"

namespace kebu::workbench {
namespace {

SqlRunner on(engine::Session& session) {
  return [&session](const std::string& batch) { return session.execute(batch); };
}

TEST(DatabaseContents, AChangedRowAndAMissingTableAreFound) {
  engine::Session one(demoCompany());
  engine::Session other(demoCompany());
  const DatabaseContents usual = contentsOf(on(one));
  EXPECT_GT(usual.size(), 50U);
  EXPECT_EQ(differences(usual, contentsOf(on(other))), std::vector<std::string>{});

  other.execute(
      "UPDATE MG58_DEPOSITI SET MG58_DESCRDEP = 'altro' "
      "WHERE MG58_DITTA_CG18 = 1 AND MG58_CODDEP = '08'");
  other.execute("DROP TABLE GM61_KBDISCOUNTRULES");
  std::vector<std::string> tables;
  for (const std::string& line : differences(usual, contentsOf(on(other)))) {
    if (!line.starts_with("  ")) tables.push_back(line);
  }
  EXPECT_EQ(tables,
            (std::vector<std::string>{"GM61_KBDISCOUNTRULES: 6 rows are missing, 0 are too many",
                                      "MG58_DEPOSITI: 1 rows are missing, 1 are too many"}));
}

TEST(DatabaseContents, TheTimeOfTodayDoesNotCountButItsDayDoes) {
  engine::Session session(engine::Database::createInMemory());
  session.execute("CREATE TABLE T (D datetime) INSERT INTO T VALUES (GETDATE())");
  const DatabaseContents before = contentsOf(on(session));
  EXPECT_EQ(before.at("T"), std::vector<std::string>{"(today)"});
  session.execute("UPDATE T SET D = D - 1");
  EXPECT_FALSE(differences(before, contentsOf(on(session))).empty());
}

TEST(DatabaseContents, AnEmptiedDatabaseHoldsNothing) {
  engine::Session session(demoCompany());
  EXPECT_GT(objectCount(on(session)), 60U);
  for (const std::string& statement : statementsThatEmpty(on(session))) session.execute(statement);
  EXPECT_EQ(objectCount(on(session)), 0U);
}

TEST(SqlTestFile, SaysWhatIsOtherwise) {
  struct Case {
    const char* kind;
    const char* argument;
    const char* batch;
    const char* expected;
    bool holds;
    bool holdsWithoutTexts;
  };
  constexpr Case cases[] = {
      {"ok", "", "SELECT 1", "", true, true},
      {"ok", "", "SELECT 1 FROM NOWHERE", "", false, false},
      {"query", "", "SELECT 1, NULL", "1|NULL\n", true, true},
      {"query", "", "SELECT 1, NULL", "1|0\n", false, false},
      {"error", "208 NOWHERE", "SELECT 1 FROM NOWHERE", "", true, true},
      {"error", "208 OTHER", "SELECT 1 FROM NOWHERE", "", false, true},
      {"error", "207", "SELECT 1 FROM NOWHERE", "", false, false},
      {"error", "208", "SELECT 1", "", false, false},
      {"rows", "1", "CREATE TABLE #T (A int) INSERT INTO #T VALUES (1)", "", true, true},
      {"rows", "2", "CREATE TABLE #T (A int) INSERT INTO #T VALUES (1)", "", false, false},
      {"row", "", "SELECT 1", "", false, false},
  };
  for (const Case& each : cases) {
    engine::Session session(engine::Database::createInMemory());
    const SqlTestBlock block{each.kind, each.argument, each.batch, each.expected, 1};
    const SqlOutcome outcome = outcomeOf(session, block.batch);
    SCOPED_TRACE(std::string(each.kind) + " " + each.argument + ": " + each.batch);
    EXPECT_EQ(mismatch(block, outcome, ErrorTexts::Compared).empty(), each.holds);
    EXPECT_EQ(mismatch(block, outcome, ErrorTexts::Ignored).empty(), each.holdsWithoutTexts);
  }
}

}  // namespace
}  // namespace kebu::workbench
