#pragma once

#include <span>

#include "workbench/engine/functions/functions.h"

namespace kebu::engine {

class Database;

/// Registers with SQLite what the bound statements use: the collation KB, the aggregate
/// kb_sum and the functions kb_….
void registerFunctions(Database& database);

/// A function that asks the database and its sessions.
using SystemFunction = Cell (*)(Database& database, CellArguments args);
std::span<const NamedFunction<SystemFunction>> systemFunctions();

}  // namespace kebu::engine
