#include "workbench/acceptance/database_contents.h"

#include <algorithm>
#include <iterator>

#include "common/convert.h"
#include "common/nulls.h"
#include "workbench/player/result_text.h"

namespace kebu::workbench {

namespace {

constexpr const char* objects =
    "SELECT name, type FROM sys.objects WHERE type IN ('U', 'V', 'P', 'FN', 'IF', 'TF')";

std::vector<std::vector<Value>> rowsOf(const SqlRunner& sql, const std::string& query) {
  return sql(query).at(0).rows;
}

std::string rowText(const std::vector<Value>& row, const std::string& today) {
  std::string text;
  for (const Value& value : row) {
    std::string cell = queryText(value);
    if (value.holds<Date>() && cell.starts_with(today)) cell = "(today)";
    text += (text.empty() ? "" : "|") + cell;
  }
  return text;
}

std::string todayOf(const SqlRunner& sql) {
  return queryText(rowsOf(sql, "SELECT GETDATE()").at(0).at(0))
      .substr(0, std::string("yyyy-mm-dd").size());
}

std::vector<std::string> onlyIn(const std::vector<std::string>& one,
                                const std::vector<std::string>& other) {
  std::vector<std::string> rows;
  std::ranges::set_difference(one, other, std::back_inserter(rows));
  return rows;
}

}  // namespace

DatabaseContents contentsOf(const SqlRunner& sql) {
  const std::string today = todayOf(sql);
  DatabaseContents contents;
  for (const auto& table : rowsOf(sql, "SELECT name FROM sys.tables")) {
    const std::string name = toText(table.at(0));
    std::vector<std::string>& rows = contents[name];
    for (const auto& row : rowsOf(sql, "SELECT * FROM " + name)) {
      rows.push_back(rowText(row, today));
    }
    std::ranges::sort(rows);
  }
  return contents;
}

std::vector<std::string> differences(const DatabaseContents& expected,
                                     const DatabaseContents& found) {
  constexpr std::size_t mostRows = 3;
  std::vector<std::string> lines;
  const auto list = [&](const char* what, const std::vector<std::string>& rows) {
    for (std::size_t i = 0; i < std::min(rows.size(), mostRows); ++i) {
      lines.push_back(std::string("  ") + what + ": " + rows[i]);
    }
  };
  DatabaseContents all = expected;
  all.insert(found.begin(), found.end());
  const auto rowsIn = [](const DatabaseContents& contents, const std::string& table) {
    const auto at = contents.find(table);
    return at == contents.end() ? std::vector<std::string>{} : at->second;
  };
  for (const auto& [table, ignored] : all) {
    const auto missing = onlyIn(rowsIn(expected, table), rowsIn(found, table));
    const auto additional = onlyIn(rowsIn(found, table), rowsIn(expected, table));
    if (missing.empty() && additional.empty()) continue;
    lines.push_back(table + ": " + std::to_string(missing.size()) + " rows are missing, " +
                    std::to_string(additional.size()) + " are too many");
    list("missing", missing);
    list("too many", additional);
  }
  return lines;
}

std::vector<std::string> statementsThatEmpty(const SqlRunner& sql) {
  const auto kindOf = [](const std::string& type) {
    if (type == "U") return "TABLE";
    if (type == "V") return "VIEW";
    return type == "P" ? "PROCEDURE" : "FUNCTION";
  };
  std::vector<std::string> code;
  std::vector<std::string> tables;
  for (const auto& row : rowsOf(sql, objects)) {
    const std::string kind = kindOf(RTrimN(row.at(1)));
    (kind == "TABLE" ? tables : code).push_back("DROP " + kind + " " + toText(row.at(0)));
  }
  code.insert(code.end(), tables.begin(), tables.end());
  return code;
}

std::size_t objectCount(const SqlRunner& sql) {
  return rowsOf(sql, objects).size();
}

}  // namespace kebu::workbench
