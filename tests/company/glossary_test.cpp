// docs/glossary.md explains every table, view, procedure and function of the schema, and nothing
// that is not there any more.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

#include "workbench/company/scripts.h"

namespace kebu::workbench {
namespace {

using Names = std::set<std::string>;

Names matchesOf(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  Names names;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
       ++match) {
    names.insert((*match)[1]);
  }
  return names;
}

Names schemaNames() {
  Names names;
  for (const Script& script : schemaScripts()) {
    names.merge(matchesOf(std::string(script.text),
                          R"(CREATE (?:TABLE|VIEW|PROCEDURE|FUNCTION) (?:dbo\.)?(\w+))"));
  }
  return names;
}

Names difference(const Names& left, const Names& right) {
  Names names;
  std::set_difference(left.begin(), left.end(), right.begin(), right.end(),
                      std::inserter(names, names.end()));
  return names;
}

TEST(Glossary, ExplainsTheWholeSchemaAndNothingElse) {
  std::ifstream file(GLOSSARY);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  ASSERT_NE(text, "") << GLOSSARY;
  // The rows of its tables begin with the names that they explain.
  Names explained;
  for (const std::string& cell : matchesOf(text, R"(\n\| (`[^|]*) \|)")) {
    explained.merge(matchesOf(cell, R"(`((?:[A-Z]{2}\w\w|VGM\d\d|SP\w\w|FN\w{4})_\w+)`)"));
  }
  const Names inSchema = schemaNames();
  EXPECT_GT(inSchema.size(), 60U);
  EXPECT_EQ(difference(inSchema, explained), Names());
  EXPECT_EQ(difference(explained, inSchema), Names());
}

}  // namespace
}  // namespace kebu::workbench
