// Every file in sql/ is a test, as tests/support/sql_test_file.h describes it, on a database of its
// own.

#include <gtest/gtest.h>

#include "tests/support/sql_test_file.h"
#include "workbench/engine/execution/database.h"

namespace kebu::engine {
namespace {

class SqlFile : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(SqlFile, GivesTheExpectedRows) {
  const auto blocks = readSqlTest(GetParam());
  ASSERT_FALSE(blocks.empty());
  Session session(Database::createInMemory());
  for (const SqlTestBlock& block : blocks) {
    SCOPED_TRACE(GetParam().filename().string() + ":" + std::to_string(block.line));
    runSqlTestBlock(session, block);
  }
}

INSTANTIATE_TEST_SUITE_P(All, SqlFile, testing::ValuesIn(sqlTestFiles(SQL_TESTS)),
                         [](const auto& file) { return file.param.stem().string(); });

}  // namespace
}  // namespace kebu::engine
