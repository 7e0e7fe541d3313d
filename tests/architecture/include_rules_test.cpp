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
      {"src/common/a.h", "#include <string>", true},
      {"src/common/a.h", "#include \"common/b.h\"", true},
      {"src/common/a.h", "#include \"ado/b.h\"", false},
      {"src/common/a.h", "#include <ado/b.h>", false},
      {"src/common/a.h", "  #  include\t\"ado/b.h\"", false},
      {"src/common/a.h", "#include <unistd.h>", false},
      {"src/common/a.h", "#include \"b.h\"", false},
      {"src/common/a.h", "#include \"../ado/b.h\"", false},
      {"src/common/a.h", "// #include \"ado/b.h\"", true},
      {"src/ado/a.h", "#include \"common/b.h\"", true},
      {"src/ado/a.h", "#include \"host/b.h\"", false},
      {"src/host/a.h", "#include \"ado/b.h\"", true},
      {"src/controls/a.h", "#include \"host/b.h\"", true},
      {"src/controls/a.h", "#include \"sql/b.h\"", false},
      {"src/sql/a.h", "#include \"common/b.h\"", true},
      {"src/sql/a.h", "#include \"ado/b.h\"", false},
      {"src/forms/x/y/a.h", "#include \"sql/b.h\"", true},
      {"src/forms/x/y/a.h", "#include \"plugin/b.h\"", false},
      {"src/forms/filters/a.h", "#include \"forms/b.h\"", true},
      {"src/forms/filters/a.h", "#include \"forms/anagrafica/b.h\"", false},
      {"src/forms/anagrafica/profile/parameters/a.h", "#include \"forms/anagrafica/profile/b.h\"",
       false},
      {"src/plugin/a.h", "#include \"forms/x/b.h\"", true},
      {"src/plugin/a.h", "#include \"workbench/host/b.h\"", false},
      {"src/plugin/a.h", "#include <windows.h>", false},
      {"src/windows/com/a.h", "#include <CommCtrl.h>", true},
      {"src/windows/com/a.h", "#include <windows.h>", false},
      {"src/windows/support/windows_api.h", "#include <windows.h>", true},
      {"src/windows/com/a.h", "#include \"plugin/b.h\"", true},
      {"src/windows/com/a.h", "#include \"workbench/windows/b.h\"", false},
      {"src/windows/com/a.h", "#include <sqlite3.h>", false},
      {"src/windows/views/layout/a.h", "#include <windows.h>", false},
      {"src/windows/views/controls/a.h", "#include \"windows/views/grid/b.h\"", false},
      {"src/windows/views/form/a.h", "#include \"windows/views/grid/b.h\"", true},
      {"workbench/host/a.h", "#include \"workbench/ado/b.h\"", true},
      {"workbench/host/a.h", "#include \"workbench/player/b.h\"", false},
      {"workbench/host/a.h", "#include \"plugin/b.h\"", true},
      {"workbench/host/a.h", "#include <sqlite3.h>", false},
      {"workbench/host/a.h", "#include \"tests/b.h\"", false},
      {"workbench/engine/a.h", "#include <sqlite3.h>", true},
      {"workbench/engine/syntax/a.h", "#include \"workbench/engine/binding/b.h\"", false},
      {"workbench/engine/binding/a.h", "#include \"workbench/engine/syntax/b.h\"", true},
      {"workbench/engine/binding/a.h", "#include \"workbench/ado/b.h\"", false},
      {"workbench/windows/a.h", "#include <windows.h>", false},
      {"workbench/windows/a.h", "#include <shellapi.h>", true},
      {"tests/x/a.cpp", "#include \"workbench/engine/syntax/b.h\"", true},
      {"tests/x/a.cpp", "#include \"tests/y/b.h\"", true},
      {"tests/x/a.cpp", "#include <gtest/gtest.h>", true},
      {"tests/x/a.cpp", "#include <OleAuto.h>", false},
      {"tests/windows/a.cpp", "#include <OleAuto.h>", true},
      {"bench/a.cpp", "#include <sqlite3.h>", true},
      {"bench/a.cpp", "#include \"plugin/b.h\"", true},
      {"elsewhere/a.cpp", "#include <string>", false},
      {"common/a.cpp", "#include <string>", false},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(violations(test.path, test.text).empty(), test.allowed)
        << test.path << ": " << test.text;
  }
}

TEST(IncludeRules, NameTheLine) {
  const auto found = violations("src/sql/a.cpp",
                                "#include \"sql/a.h\"\n"
                                "\n"
                                "#include \"forms/b.h\"\n"
                                "#include <windows.h>");
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].line, 3);
  EXPECT_EQ(found[0].reason, "src/sql may not know src/forms (forms/b.h)");
  EXPECT_EQ(found[1].line, 4);
}

}  // namespace

}  // namespace kebu::architecture
