#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

#include "common/convert.h"

namespace kebu::engine {

struct CloseHandle {
  void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;
using Prepared = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// A name as SQLite takes it.
inline std::string quoted(const std::string& name) {
  return '"' + replaceAll(name, "\"", "\"\"") + '"';
}

/// A text as SQLite takes it.
inline std::string textLiteral(const std::string& text) {
  return "'" + replaceAll(text, "'", "''") + "'";
}

}  // namespace kebu::engine
