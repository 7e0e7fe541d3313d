#include "workbench/player/result_text.h"

#include <algorithm>

#include "common/convert.h"

namespace kebu::workbench {

std::string queryText(const Value& value) {
  if (value.isNull() || value.isEmpty()) return "NULL";
  if (value.holds<bool>()) return value.as<bool>() ? "1" : "0";
  if (value.holds<Date>()) return value.as<Date>().toIso();
  // With all decimal places of the column, as a query tool does.
  if (value.holds<Decimal>()) return value.as<Decimal>().toString();
  return value.isNumber() ? toSqlNumber(value) : toText(value);
}

void writeResult(std::ostream& out, const engine::ResultSet& result, const std::string& indent) {
  if (result.columns.empty()) return;
  std::string line;
  for (std::size_t i = 0; i < result.columns.size(); ++i) {
    line += (i == 0 ? indent : "\t") + result.columns[i].name;
  }
  out << line << '\n';
  for (const auto& row : result.rows) {
    for (std::size_t i = 0; i < row.size(); ++i)
      out << (i == 0 ? indent : "\t") << queryText(row[i]);
    out << '\n';
  }
}

std::string errorText(const engine::SqlError& error) {
  std::string text = "Msg " + std::to_string(error.nativeError()) + ", Level " +
                     std::to_string(error.severity()) + ", State 1";
  if (!error.procedure().empty()) text += ", Procedure " + error.procedure();
  return text + ", Line " + std::to_string(std::max(error.line(), 1)) + "\n" + error.description() +
         "\n";
}

std::string firstRowText(const std::vector<engine::ResultSet>& results) {
  const auto result = std::find_if(results.begin(), results.end(),
                                   [](const auto& r) { return !r.columns.empty(); });
  if (result == results.end() || result->rows.empty()) return "(no rows)";
  std::string text;
  for (const Value& value : result->rows.front()) {
    text += (&value == &result->rows.front().front() ? "" : "|") + queryText(value);
  }
  return text;
}

}  // namespace kebu::workbench
