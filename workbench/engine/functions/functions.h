#pragma once

#include <span>
#include <string>

#include "workbench/engine/values/cell.h"

namespace kebu::engine {

class Database;

/// The arguments of a call that SQLite makes.
using CellArguments = std::span<sqlite3_value*>;
/// What it calls: gives the result or throws an SqlError, which then fails the statement.
using CellFunction = Cell (*)(Database& database, CellArguments args);

struct FunctionEntry {
  const char* name;
  int argumentCount;  ///< -1 for any
  bool deterministic;
  CellFunction function;
};

std::span<const FunctionEntry> numberFunctions();
std::span<const FunctionEntry> textFunctions();
std::span<const FunctionEntry> dateFunctions();

/// Comparison of texts as SQL Server's usual collation has it.
int compareTexts(std::string_view a, std::string_view b);
/// LIKE: % for any text, _ for a character, [a-f] and [^a-f] for one of a set.
bool matchesLike(std::string_view text, std::string_view pattern, std::string_view escape = {});

/// Whether any argument is null, which most functions answer with null.
bool anyNull(CellArguments args);
std::string_view textAt(CellArguments args, std::size_t index);
std::int64_t integerAt(CellArguments args, std::size_t index);

}  // namespace kebu::engine
