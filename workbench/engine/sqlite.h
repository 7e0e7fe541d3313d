#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

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
  std::string result = "\"";
  for (const char c : name) {
    result += c;
    if (c == '"') result += c;
  }
  return result + '"';
}

/// A text as SQLite takes it.
inline std::string textLiteral(const std::string& text) {
  std::string result = "'";
  for (const char c : text) {
    result += c;
    if (c == '\'') result += c;
  }
  return result + '\'';
}

}  // namespace kebu::engine
