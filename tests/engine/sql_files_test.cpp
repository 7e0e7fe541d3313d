// Every file in sql/ is a test: blocks that blank lines separate, each a batch.
//
//   ok                 the batch runs
//   rows 3             the batch runs and changes so many rows
//   error 207 TEXT     it fails with that number, the text in its description
//   query              it gives the rows behind "----", "|" between the values

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/engine/result_text.h"
#include "workbench/engine/execution/database.h"

namespace kebu::engine {
namespace {

struct Block {
  std::string kind;
  std::string argument;
  std::string batch;
  std::string expected;
  int line = 0;
};

std::vector<Block> readBlocks(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::vector<Block> blocks;
  bool open = false;
  bool expecting = false;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.empty()) {
      open = false;
    } else if (!open && line.front() == '#') {
      continue;
    } else if (!open) {
      Block& block = blocks.emplace_back();
      std::istringstream words(line);
      words >> block.kind;
      std::getline(words >> std::ws, block.argument);
      block.line = number;
      open = true;
      expecting = false;
    } else if (line == "----") {
      expecting = true;
    } else {
      (expecting ? blocks.back().expected : blocks.back().batch) += line + '\n';
    }
  }
  return blocks;
}

void runBlock(Session& session, const Block& block) {
  std::vector<ResultSet> results;
  std::string error;
  try {
    results = session.execute(block.batch);
  } catch (const SqlError& failure) {
    error = std::to_string(failure.nativeError()) + " " + failure.description();
  }
  if (block.kind == "error") {
    const std::string number = block.argument.substr(0, block.argument.find(' '));
    const std::string text =
        block.argument.substr(std::min(number.size() + 1, block.argument.size()));
    EXPECT_TRUE(error.starts_with(number + " ")) << "found: " << error;
    EXPECT_NE(error.find(text), std::string::npos) << "found: " << error;
    return;
  }
  EXPECT_EQ(error, "");
  if (block.kind == "query") {
    EXPECT_EQ(shown(results), block.expected);
  } else if (block.kind == "rows") {
    EXPECT_EQ(session.rowsAffected(), std::stoll(block.argument));
  } else {
    EXPECT_EQ(block.kind, "ok");
  }
}

class SqlFile : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(SqlFile, GivesTheExpectedRows) {
  const auto blocks = readBlocks(GetParam());
  ASSERT_FALSE(blocks.empty());
  Session session(Database::createInMemory());
  for (const auto& block : blocks) {
    SCOPED_TRACE(GetParam().filename().string() + ":" + std::to_string(block.line));
    runBlock(session, block);
  }
}

std::vector<std::filesystem::path> files() {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(SQL_TESTS))
    paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  return paths;
}

INSTANTIATE_TEST_SUITE_P(All, SqlFile, testing::ValuesIn(files()),
                         [](const auto& file) { return file.param.stem().string(); });

}  // namespace
}  // namespace kebu::engine
