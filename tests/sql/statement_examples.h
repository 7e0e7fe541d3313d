#pragma once

#include <string>
#include <vector>

namespace kebu::sql {

/// One text that src/sql makes, as it stands in tests/sql/texts.
struct StatementExample {
  std::string name;  ///< the function, and behind a colon which of its texts
  std::string text;
  bool isCondition = false;  ///< part of a WHERE clause or of a recordset's filter, no statement
};

/// The examples of one header of src/sql, in the header's order; they make one file of texts.
struct ExamplePage {
  std::string name;  ///< the header's name, which is the file's
  std::vector<StatementExample> examples;
};

/// Every function of src/sql, called for company 1 and its profile 2 of the demo data. Working
/// tables have names that tell what they hold, where the plug-in's have 32 random digits.
std::vector<ExamplePage> examplePages();

}  // namespace kebu::sql
