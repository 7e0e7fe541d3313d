// A working table that could not be named, since the statement for its name failed and was ignored,
// is missing in the statements on it. They must change nothing then.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "common/error.h"
#include "tests/support/test_company.h"
#include "tests/support/written_tables.h"

namespace kebu::tests {
namespace {

/// The pinned statements that name a working table.
std::vector<std::string> statementsOnWorkingTables() {
  std::vector<std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator(STATEMENT_TEXTS)) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    const std::string end = "\nGO\r\n";
    for (std::size_t from = 0, to = 0; (to = content.find(end, from)) != std::string::npos;
         from = to + end.size()) {
      const std::size_t text = content.find('\n', content.find("--", from)) + 1;
      const std::string statement = content.substr(text, to - text);
      if (statement.find("##") != std::string::npos) found.push_back(statement);
    }
  }
  return found;
}

TEST(UnnamedTables, ChangeNothing) {
  TestCompany company;
  const auto rows = [&] {
    std::vector<std::vector<std::vector<std::string>>> all;
    for (const char* const table : writtenTables) {
      all.push_back(company.rows(std::string("SELECT * FROM ") + table));
    }
    return all;
  };
  const auto before = rows();
  static const std::regex workingTable("##\\w+");
  const auto statements = statementsOnWorkingTables();
  EXPECT_GT(statements.size(), 20U);
  for (const std::string& statement : statements) {
    const std::string unnamed = std::regex_replace(statement, workingTable, "");
    EXPECT_THROW(company.execute(unnamed), RuntimeError) << unnamed;
  }
  EXPECT_EQ(rows(), before);
}

}  // namespace
}  // namespace kebu::tests
