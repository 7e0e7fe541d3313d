#include "workbench/ado/statement_log.h"

#include <gtest/gtest.h>

#include <sstream>

#include "workbench/ado/json_text.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::workbench {
namespace {

TEST(JsonString, EscapesWhatJsonCannotHold) {
  const std::pair<std::string, std::string> cases[] = {
      {"", R"("")"},
      {R"(say "si" in C:\ERP)", R"("say \"si\" in C:\\ERP")"},
      {"a\r\n\tb", R"("a\r\n\tb")"},
      {std::string("a\0b\x1f", 4), R"("a\u0000b\u001f")"},
      {"Quantità €", "\"Quantità €\""},
      {"\xF0\x9F\x98\x80", "\"\xF0\x9F\x98\x80\""},
      {"Quantit\xE0", "\"Quantit\xEF\xBF\xBD\""},                      // a Latin-1 letter
      {"\xC0\xAF", "\"\xEF\xBF\xBD\xEF\xBF\xBD\""},                    // an overlong form
      {"\xED\xA0\x80x", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBDx\""},  // half a pair
      {"\xE2\x82", "\"\xEF\xBF\xBD\xEF\xBF\xBD\""},                    // cut off
  };
  for (const auto& [text, json] : cases) EXPECT_EQ(jsonString(text), json);
}

TEST(StatementFaults, FailsAsOftenAsAsked) {
  StatementFaults faults;
  faults.add("GM57", 2);
  faults.add("MERGE", 1);
  const auto fails = [&](const std::string& text) {
    try {
      faults.raiseFor(text);
      return false;
    } catch (const engine::SqlError& error) {
      EXPECT_EQ(error.nativeError(), 50000);
      return true;
    }
  };
  EXPECT_FALSE(fails("select * from gm57"));  // case matters
  EXPECT_TRUE(fails("select * from GM57"));
  EXPECT_TRUE(fails("MERGE GM57"));  // the first that fits is used up first
  EXPECT_TRUE(fails("MERGE GM57"));
  EXPECT_FALSE(fails("MERGE GM57"));
}

}  // namespace
}  // namespace kebu::workbench
