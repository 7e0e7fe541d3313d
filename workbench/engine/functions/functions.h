#pragma once

#include <span>
#include <string>

#include "workbench/engine/values/cell.h"

namespace kebu::engine {

/// The arguments of a call that SQLite makes.
using CellArguments = std::span<sqlite3_value*>;
/// Gives the result. An SqlError that it throws makes the statement fail.
using CellFunction = Cell (*)(CellArguments args);

/// A function under the name by which SQLite calls it.
template <class Function>
struct NamedFunction {
  const char* name;
  int argumentCount;  ///< -1 for any
  bool deterministic;
  Function function;
};
using FunctionEntry = NamedFunction<CellFunction>;

std::span<const FunctionEntry> numberFunctions();
std::span<const FunctionEntry> textFunctions();
std::span<const FunctionEntry> dateFunctions();

/// Whether any argument is null; the result of most functions then is null.
bool anyNull(CellArguments args);
std::string_view textAt(CellArguments args, std::size_t index);
std::int64_t integerAt(CellArguments args, std::size_t index);

}  // namespace kebu::engine
