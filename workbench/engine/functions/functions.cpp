#include "workbench/engine/functions/functions.h"

#include <algorithm>

namespace kebu::engine {

bool anyNull(CellArguments args) {
  return std::any_of(args.begin(), args.end(),
                     [](sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; });
}

std::string_view textAt(CellArguments args, std::size_t index) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(args[index]));
  return text == nullptr
             ? std::string_view()
             : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(args[index])));
}

std::int64_t integerAt(CellArguments args, std::size_t index) {
  return sqlite3_value_int64(args[index]);
}

}  // namespace kebu::engine
