// A T-SQL script on the engine: it gives rows or errors of SQL Server's, and the session still
// works.

#include <sqlite3.h>

#include <variant>

#include "tests/fuzz/fuzz_target.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/script.h"
#include "workbench/engine/execution/session.h"

namespace {

using namespace kebu;
using namespace kebu::tests;

const engine::Database& sample() {
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
  return *database;
}

/// A long query is no fault of the engine's: it is broken off after so many steps of SQLite's.
constexpr int mostSteps = 400'000;

bool brokenOff = false;

int breakOff(void*) {
  brokenOff = true;
  return 1;
}

/// The engine made wrong SQL, or passed on what SQLite says.
void requireOwnError(const engine::SqlError& error, std::string_view input) {
  constexpr std::int32_t wrongSql = 8624;
  const std::string& text = error.description();
  if (error.nativeError() == wrongSql) broken("the engine made wrong SQL: " + text);
  for (const char* word : {"sqlite", "SQLite", "SQL logic", "near \"", "kb_", "std::"}) {
    // What the input says itself may be quoted.
    if (input.find(word) != std::string_view::npos) continue;
    if (text.find(word) != std::string::npos) broken("not the engine's own text: " + text);
  }
  require(error.nativeError() > 0 && !text.empty(), "an error without number or text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto database = sample().clone();
  brokenOff = false;
  sqlite3_progress_handler(database->handle(), mostSteps, breakOff, nullptr);
  engine::Session session(database);
  engine::forEachBatch(textOf(data, size), [&](const std::string& batch, int) {
    if (brokenOff) return;
    for (const engine::BatchEvent& event : session.run(batch)) {
      const auto* const error = std::get_if<engine::SqlError>(&event);
      if (error && !brokenOff) requireOwnError(*error, textOf(data, size));
    }
  });
  sqlite3_progress_handler(database->handle(), 0, nullptr, nullptr);
  require(session.execute("SELECT 1").size() == 1, "the session is not usable afterwards");
  return 0;
}
