// What the pinned statements do to the demo company. Every file in effects/ is a test as
// tests/support/sql_test_file.h describes it, on a demo company of its own. "{Name}" in a batch
// stands for the pinned text of that name.

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <stdexcept>

#include "tests/sql/text_files.h"
#include "tests/support/sql_test_file.h"
#include "workbench/company/company.h"
#include "workbench/engine/execution/database.h"

namespace kebu::sql {
namespace {

const std::map<std::string, std::string>& texts() {
  static const auto all = readTexts(STATEMENT_TEXTS);
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

/// The names in braces, in the order in which they stand.
std::vector<std::string> namesIn(const std::string& batch) {
  std::vector<std::string> names;
  std::size_t end = 0;
  for (std::size_t at = 0; (at = batch.find('{', end)) != std::string::npos;) {
    end = batch.find('}', at);
    if (end == std::string::npos) throw std::runtime_error("no } behind " + batch.substr(at));
    names.push_back(batch.substr(at + 1, end - at - 1));
  }
  return names;
}

std::string withTexts(std::string batch) {
  for (const std::string& name : namesIn(batch)) {
    const auto text = texts().find(name);
    if (text == texts().end()) throw std::runtime_error("no pinned text is named " + name);
    batch.replace(batch.find("{" + name + "}"), name.size() + 2, text->second);
  }
  return batch;
}

class StatementEffects : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(StatementEffects, AreTheExpectedRows) {
  const auto blocks = engine::readSqlTest(GetParam());
  ASSERT_FALSE(blocks.empty());
  engine::Session session(demoCompany());
  for (engine::SqlTestBlock block : blocks) {
    SCOPED_TRACE(GetParam().filename().string() + ":" + std::to_string(block.line));
    block.batch = withTexts(block.batch);
    engine::runSqlTestBlock(session, block);
  }
}

INSTANTIATE_TEST_SUITE_P(Page, StatementEffects,
                         testing::ValuesIn(engine::sqlTestFiles(STATEMENT_EFFECTS)),
                         [](const auto& file) { return file.param.stem().string(); });

TEST(StatementEffectFiles, RunEveryPinnedText) {
  std::set<std::string> run;
  for (const std::filesystem::path& path : engine::sqlTestFiles(STATEMENT_EFFECTS)) {
    for (const engine::SqlTestBlock& block : engine::readSqlTest(path)) {
      for (const std::string& name : namesIn(block.batch)) run.insert(name);
    }
  }
  for (const auto& [name, text] : texts()) {
    EXPECT_TRUE(run.contains(name)) << "no file in effects/ runs " << name;
  }
}

}  // namespace
}  // namespace kebu::sql
