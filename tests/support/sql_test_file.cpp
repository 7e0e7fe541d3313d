#include "tests/support/sql_test_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "tests/engine/result_text.h"

namespace kebu::engine {

std::vector<SqlTestBlock> readSqlTest(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::vector<SqlTestBlock> blocks;
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
      SqlTestBlock& block = blocks.emplace_back();
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

void runSqlTestBlock(Session& session, const SqlTestBlock& block) {
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

std::vector<std::filesystem::path> sqlTestFiles(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

}  // namespace kebu::engine
