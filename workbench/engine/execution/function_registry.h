#pragma once

#include "workbench/engine/functions/functions.h"

namespace kebu::engine {

/// Gives SQLite the collation KB, the aggregate kb_sum and the functions kb_… in
/// which expressions are made.
void registerFunctions(Database& database);

/// Those that ask the database and its sessions.
std::span<const FunctionEntry> systemFunctions();

}  // namespace kebu::engine
