#pragma once

#include <string>

#include "common/convert.h"
#include "workbench/engine/execution/result_set.h"

namespace kebu::engine {

inline std::string shown(const Value& value) {
  if (value.isNull()) return "NULL";
  if (value.holds<bool>()) return value.as<bool>() ? "1" : "0";
  if (value.holds<Decimal>()) return value.as<Decimal>().toString();
  if (value.holds<Date>())
    return value.as<Date>().toIso().substr(0, value.as<Date>().hasTime() ? 19 : 10);
  return toText(value);
}

/// Rows with "|" between the values, a line each.
template <class Rows>
std::string shownRows(const Rows& rows) {
  std::string text;
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i > 0 ? "|" : "") + shown(row[i]);
    text += '\n';
  }
  return text;
}

inline std::string shown(const ResultSet& result) {
  return shownRows(result.rows);
}

inline std::string shown(const std::vector<ResultSet>& results) {
  std::string text;
  for (const auto& result : results) text += shown(result);
  return text;
}

}  // namespace kebu::engine
