// A T-SQL script on the engine: it gives rows or errors of SQL Server's, and the session still
// works.

#include <sqlite3.h>

#include <variant>

#include "tests/fuzz/sql_sample.h"
#include "workbench/engine/execution/script.h"
#include "workbench/engine/execution/session.h"

namespace {

using namespace kebu;
using namespace kebu::tests;

/// A long query is no fault of the engine's: it is broken off after so many steps of SQLite's.
constexpr int mostSteps = 400'000;

bool brokenOff = false;

int breakOff(void*) {
  brokenOff = true;
  return 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto database = sampleDatabase()->clone();
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
