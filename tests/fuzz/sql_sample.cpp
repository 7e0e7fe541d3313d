#include "tests/fuzz/sql_sample.h"

#include "workbench/engine/execution/session.h"

namespace kebu::tests {

const std::shared_ptr<engine::Database>& sampleDatabase() {
  static const auto database = [] {
    auto made = engine::Database::createInMemory();
    engine::Session(made).execute(
        "CREATE TABLE T (A int NOT NULL, B varchar(10) NULL, C decimal(10,2) NULL, D datetime "
        "NULL, "
        "E smallint NULL, F decimal(28,5) NULL, PRIMARY KEY (A))\n"
        "INSERT INTO T VALUES (1, 'uno', 1.5, '20260101', 0, 1), (2, NULL, NULL, NULL, 1, NULL), "
        "(3, 'tre', -3, '20261231', NULL, 99.99999)\n"
        "CREATE TABLE U (N int IDENTITY(1,1) NOT NULL PRIMARY KEY, A int NULL, S nvarchar(20) "
        "NULL)\n"
        "INSERT INTO U (A, S) VALUES (1, 'x'), (3, 'O''Neil')");
    return made;
  }();
  return database;
}

void requireOwnError(const engine::SqlError& error, std::string_view input) {
  constexpr std::int32_t wrongSql = 8624;
  const std::string& text = error.description();
  if (error.nativeError() == wrongSql) broken("the engine made wrong SQL: " + text);
  for (const char* word : {"sqlite", "SQLite", "SQL logic", "near \"", "kb_", "std::"}) {
    // What the input says itself may be quoted.
    if (input.find(word) != std::string_view::npos) continue;
    if (text.find(word) != std::string::npos) broken("not the engine's own text: " + text);
  }
  constexpr std::int32_t ofRaiseError = 50000;  // its text is the script's
  require(error.nativeError() > 0 && (!text.empty() || error.nativeError() >= ofRaiseError),
          "an error without number or text");
}

}  // namespace kebu::tests
