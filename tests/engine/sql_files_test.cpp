// Every file in sql/ is a test, as workbench/acceptance/sql_test_file.h describes it, on a database
// of its own.

#include <gtest/gtest.h>

#include "workbench/acceptance/sql_test_file.h"
#include "workbench/engine/execution/database.h"

namespace kebu::engine {
namespace {

class SqlFile : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(SqlFile, GivesTheExpectedRows) {
  const auto blocks = workbench::readSqlTest(GetParam());
  ASSERT_FALSE(blocks.empty());
  Session session(Database::createInMemory());
  for (const workbench::SqlTestBlock& block : blocks) {
    SCOPED_TRACE(GetParam().filename().string() + ":" + std::to_string(block.line));
    EXPECT_EQ(workbench::mismatch(block, workbench::outcomeOf(session, block.batch),
                                  workbench::ErrorTexts::Compared),
              "");
  }
}

INSTANTIATE_TEST_SUITE_P(All, SqlFile, testing::ValuesIn(workbench::filesIn(SQL_TESTS)),
                         [](const auto& file) { return file.param.stem().string(); });

}  // namespace
}  // namespace kebu::engine
