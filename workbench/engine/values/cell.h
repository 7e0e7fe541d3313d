#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "common/value.h"
#include "workbench/engine/values/types.h"

namespace kebu::engine {

/// A value as SQLite keeps it. Integers, bits and narrow decimals (times 10^scale)
/// are integers; dates milliseconds since 1970; wide decimals 13-byte blobs that
/// sort as the numbers do.
struct Cell {
  enum class Kind : std::uint8_t { Null, Integer, Text, Blob } kind = Kind::Null;
  std::int64_t integer = 0;
  std::string bytes;

  bool isNull() const { return kind == Kind::Null; }
  static Cell of(std::int64_t value) { return {Kind::Integer, value, {}}; }
  static Cell text(std::string value) { return {Kind::Text, 0, std::move(value)}; }
};

Cell cellOf(sqlite3_value* value);
void bind(sqlite3_stmt* statement, int place, const Cell& cell);
void setResult(sqlite3_context* context, const Cell& cell);

/// The value that a cell of a column of this type holds.
Value valueOf(Cell cell, const SqlType& type);
Value valueOf(sqlite3_value* cell, const SqlType& type);
/// The cell for a value that is already of the type. SqlError 8115 when a
/// decimal has more digits than can be kept.
Cell storedAs(const Value& value, const SqlType& type);

std::int64_t millisecondsOf(const Date& date);
/// SqlError 8115 outside of the years 1 to 9999.
Date dateFromMilliseconds(std::int64_t milliseconds);

}  // namespace kebu::engine
