#pragma once

#include <span>
#include <string>

#include "workbench/engine/values/cell.h"

namespace kebu::engine {

/// The arguments of a call that SQLite makes.
using CellArguments = std::span<sqlite3_value*>;
/// Gives the result for arguments of which none is null: with a null the result is null. An
/// SqlError that it throws makes the statement fail.
using CellFunction = Cell (*)(CellArguments args);

/// A function under the name by which SQLite calls it.
template <class Function>
struct NamedFunction {
  const char* name;
  int argumentCount;  ///< -1 for any
  Function function;
};
using FunctionEntry = NamedFunction<CellFunction>;

std::span<const FunctionEntry> numberFunctions();
std::span<const FunctionEntry> textFunctions();
std::span<const FunctionEntry> dateFunctions();

bool anyNull(CellArguments args);
std::string_view textAt(CellArguments args, std::size_t index);
std::int64_t integerAt(CellArguments args, std::size_t index);

}  // namespace kebu::engine
