#include "tests/architecture/include_rules.h"

#include <gtest/gtest.h>

namespace kebu::architecture {

namespace {

struct Case {
  const char* path;
  const char* text;
  bool allowed;
};

TEST(IncludeRules, TellAllowedIncludesFromForbiddenOnes) {
  const Case cases[] = {
      {"common/a.h", "#include <string>", true},
      {"common/a.h", "#include \"common/b.h\"", true},
      {"common/a.h", "#include \"ado/b.h\"", false},
      {"common/a.h", "#include <ado/b.h>", false},
      {"common/a.h", "  #  include\t\"ado/b.h\"", false},
      {"common/a.h", "#include <unistd.h>", false},
      {"common/a.h", "#include \"b.h\"", false},
      {"common/a.h", "#include \"../ado/b.h\"", false},
      {"common/a.h", "// #include \"ado/b.h\"", true},
      {"ado/a.h", "#include \"common/b.h\"", true},
      {"ado/a.h", "#include \"host/b.h\"", false},
      {"host/a.h", "#include \"ado/b.h\"", true},
      {"host/a.h", "#include \"controls/b.h\"", false},
      {"controls/a.h", "#include \"host/b.h\"", true},
      {"controls/a.h", "#include \"sql/b.h\"", false},
      {"sql/a.h", "#include \"ado/b.h\"", false},
      {"forms/x/y/a.h", "#include \"forms/z/b.h\"", true},
      {"forms/x/y/a.h", "#include \"sql/b.h\"", true},
      {"forms/x/y/a.h", "#include \"plugin/b.h\"", false},
      {"plugin/a.h", "#include \"forms/x/b.h\"", true},
      {"plugin/a.h", "#include \"workbench/b.h\"", false},
      {"plugin/a.h", "#include <windows.h>", false},
      {"windows/a.h", "#include <Windows.h>", true},
      {"windows/a.h", "#include \"plugin/b.h\"", true},
      {"windows/a.h", "#include \"workbench/b.h\"", false},
      {"windows/a.h", "#include <sqlite3.h>", false},
      {"workbench/host/a.h", "#include \"workbench/engine/b.h\"", true},
      {"workbench/host/a.h", "#include \"plugin/b.h\"", true},
      {"workbench/host/a.h", "#include <sqlite3.h>", false},
      {"workbench/host/a.h", "#include \"tests/b.h\"", false},
      {"workbench/engine/a.h", "#include \"ado/b.h\"", true},
      {"workbench/engine/a.h", "#include <sqlite3.h>", true},
      {"workbench/engine/a.h", "#include \"host/b.h\"", false},
      {"workbench/engine/a.h", "#include \"workbench/b.h\"", false},
      {"tests/x/a.cpp", "#include \"workbench/engine/b.h\"", true},
      {"tests/x/a.cpp", "#include <gtest/gtest.h>", true},
      {"tests/x/a.cpp", "#include <OleAuto.h>", false},
      {"tests/x/a.cpp", "#include <sqlite3.h>", false},
      {"bench/a.cpp", "#include <sqlite3.h>", true},
      {"bench/a.cpp", "#include \"plugin/b.h\"", true},
      {"elsewhere/a.cpp", "#include <string>", false},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(violations(test.path, test.text).empty(), test.allowed)
        << test.path << ": " << test.text;
  }
}

TEST(IncludeRules, NameTheLine) {
  const auto found = violations("sql/a.cpp",
                                "#include \"sql/a.h\"\n"
                                "\n"
                                "#include \"forms/b.h\"\n"
                                "#include <windows.h>");
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].line, 3);
  EXPECT_EQ(found[0].reason, "sql may not know forms (forms/b.h)");
  EXPECT_EQ(found[1].line, 4);
}

}  // namespace

}  // namespace kebu::architecture
