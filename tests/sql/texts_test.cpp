// The statement texts of src/sql stand in texts/, one file a header.

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>

#include "tests/sql/text_files.h"
#include "workbench/acceptance/sql_test_file.h"

namespace kebu::sql {
namespace {

const std::filesystem::path texts = STATEMENT_TEXTS;
const std::filesystem::path headers = STATEMENT_HEADERS;
constexpr const char* writeAnew = "tools/write_texts.sh writes the files anew";

/// The first line in which two texts differ, with both readings, blanks and line ends made visible.
std::string difference(const std::string& expected, const std::string& found) {
  std::istringstream expectedLines(expected);
  std::istringstream foundLines(found);
  for (int number = 1;; ++number) {
    std::string expectedLine;
    std::string foundLine;
    const bool isExpected = static_cast<bool>(std::getline(expectedLines, expectedLine));
    const bool isFound = static_cast<bool>(std::getline(foundLines, foundLine));
    if (isExpected && isFound && expectedLine == foundLine) continue;
    const auto shown = [](bool isThere, const std::string& line) {
      return isThere ? testing::PrintToString(line) : "the end of the file";
    };
    return "line " + std::to_string(number) + "\n  pinned: " + shown(isExpected, expectedLine) +
           "\n  made:   " + shown(isFound, foundLine);
  }
}

TEST(StatementTexts, AreThePinnedOnesToTheByte) {
  std::set<std::filesystem::path> expected;
  for (const ExamplePage& page : examplePages()) {
    const std::filesystem::path path = fileOf(texts, page);
    expected.insert(path);
    ASSERT_TRUE(std::filesystem::exists(path)) << path << " is missing; " << writeAnew;
    const std::string pinned = readFile(path);
    const std::string made = fileContent(page);
    EXPECT_TRUE(pinned == made) << path << ", " << difference(pinned, made) << "\n" << writeAnew;
  }
  for (const auto& entry : std::filesystem::directory_iterator(texts)) {
    EXPECT_TRUE(expected.contains(entry.path())) << entry.path() << " belongs to no page";
  }
}

/// The functions of a header that make statements or parts of them: all that return a text, but for
/// the inline helpers that put pieces together.
std::vector<std::string> functionsOf(const std::filesystem::path& header) {
  static const std::regex declaration(R"(\n *std::(?:string|array<std::string, \d+>) (\w+)\()");
  const std::string content = readFile(header);
  std::vector<std::string> names;
  for (std::sregex_iterator match(content.begin(), content.end(), declaration), end; match != end;
       ++match) {
    names.push_back((*match)[1]);
  }
  return names;
}

TEST(StatementTexts, AreThereForEveryFunctionOfEveryHeader) {
  std::set<std::string> pinned;
  for (const auto& [name, text] : workbench::readStatementTexts(texts))
    pinned.insert(name.substr(0, name.find(':')));
  std::size_t functions = 0;
  for (const auto& entry : std::filesystem::directory_iterator(headers)) {
    if (entry.path().extension() != ".h") continue;
    for (const std::string& name : functionsOf(entry.path())) {
      ++functions;
      EXPECT_TRUE(pinned.contains(name))
          << entry.path() << ": " << name << " has no example in statement_examples.cpp";
    }
  }
  EXPECT_EQ(functions, pinned.size()) << "an example stands under a name that no header declares";
}

}  // namespace
}  // namespace kebu::sql
