// What the pinned statements do to the demo company. Every file in effects/ is a test as
// workbench/acceptance/sql_test_file.h describes it, on a demo company of its own. "{Name}" in a
// batch stands for the pinned text of that name.

#include <gtest/gtest.h>

#include <set>

#include "workbench/acceptance/sql_test_file.h"
#include "workbench/company/company.h"
#include "workbench/engine/execution/database.h"

namespace kebu::sql {
namespace {

const workbench::StatementTexts& texts() {
  static const auto all = workbench::readStatementTexts(STATEMENT_TEXTS);
  return all;
}

std::shared_ptr<engine::Database> demoCompany() {
  static const auto demo = [] {
    auto made = engine::Database::createInMemory();
    engine::Session session(made);
    workbench::createSchema(session);
    workbench::loadDemo(session);
    return made;
  }();
  return demo->clone();
}

class StatementEffects : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(StatementEffects, AreTheExpectedRows) {
  const auto blocks = workbench::readSqlTest(GetParam());
  ASSERT_FALSE(blocks.empty());
  engine::Session session(demoCompany());
  for (const workbench::SqlTestBlock& block : blocks) {
    SCOPED_TRACE(GetParam().filename().string() + ":" + std::to_string(block.line));
    EXPECT_EQ(workbench::mismatch(
                  block, workbench::outcomeOf(session, workbench::withTexts(block.batch, texts())),
                  workbench::ErrorTexts::Compared),
              "");
  }
}

INSTANTIATE_TEST_SUITE_P(Page, StatementEffects,
                         testing::ValuesIn(workbench::filesIn(STATEMENT_EFFECTS)),
                         [](const auto& file) { return file.param.stem().string(); });

TEST(StatementEffectFiles, RunEveryPinnedText) {
  std::set<std::string> run;
  for (const std::filesystem::path& path : workbench::filesIn(STATEMENT_EFFECTS)) {
    for (const workbench::SqlTestBlock& block : workbench::readSqlTest(path)) {
      for (const std::string& name : workbench::namesIn(block.batch)) run.insert(name);
    }
  }
  for (const auto& [name, text] : texts()) {
    EXPECT_TRUE(run.contains(name)) << "no file in effects/ runs " << name;
  }
}

}  // namespace
}  // namespace kebu::sql
