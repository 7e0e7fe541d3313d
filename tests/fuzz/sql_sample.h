#pragma once

#include <string_view>

#include "tests/fuzz/fuzz_target.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::tests {

/// Two tables with a few rows, for the scripts of the targets. It is shared: clone it to write.
const std::shared_ptr<engine::Database>& sampleDatabase();

/// Ends the program when the engine made wrong SQL, or passed on what SQLite says.
void requireOwnError(const engine::SqlError& error, std::string_view input);

}  // namespace kebu::tests
