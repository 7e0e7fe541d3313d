#include "tests/forms/filter_oracle.h"

#include <algorithm>

#include "common/convert.h"

namespace kebu::workbench {

namespace {

/// As two texts that the database holds for equal become the same. In small
/// letters, since signs stand before them.
std::string folded(const std::string& text) {
  std::string small = trimRight(text);
  for (char& c : small) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return small;
}

/// Below, at or above 0 as the first is to the second.
int compare(const std::string& a, const std::string& b, bool isNumeric) {
  if (isNumeric) {
    const long long difference = std::stoll(a) - std::stoll(b);
    return difference < 0 ? -1 : (difference > 0 ? 1 : 0);
  }
  return folded(a).compare(folded(b));
}

}  // namespace

bool holds(const StoredValue& cell, bool isNumeric, const QueryCondition& condition) {
  const auto& values = condition.values;
  const bool isEmpty = !cell || (!isNumeric && folded(*cell).empty());
  switch (condition.op) {
    case QueryOperator::Any:
      return true;
    case QueryOperator::Equal:
      return cell && compare(*cell, values[0], isNumeric) == 0;
    case QueryOperator::Different:
      return !cell || compare(*cell, values[0], isNumeric) != 0;
    case QueryOperator::Range:
      return cell && (values[0].empty() || compare(*cell, values[0], isNumeric) >= 0) &&
             (values[1].empty() || compare(*cell, values[1], isNumeric) <= 0);
    case QueryOperator::Starts:
      return cell && folded(*cell).starts_with(folded(values[0]));
    case QueryOperator::Contains:
      return cell && folded(*cell).find(folded(values[0])) != std::string::npos;
    case QueryOperator::OneOf:
      return cell && std::any_of(values.begin(), values.end(), [&](const std::string& value) {
               return compare(*cell, value, isNumeric) == 0;
             });
    case QueryOperator::Empty:
      return isEmpty;
    case QueryOperator::NotEmpty:
      return !isEmpty;
  }
  return false;
}

std::multimap<std::string, StoredValue> read(engine::Session& session, const std::string& table,
                                             const std::string& key, const std::string& column,
                                             const std::vector<std::string>& ones) {
  std::string statement = "SELECT " + key + ", " + column;
  for (const std::string& one : ones) statement += ", " + one;
  const auto result = session.execute(statement + " FROM " + table);
  std::multimap<std::string, StoredValue> cells;
  for (const auto& row : result.front().rows) {
    const bool wanted = std::all_of(row.begin() + 2, row.end(),
                                    [](const Value& value) { return toSqlNumber(value) == "1"; });
    if (wanted) {
      cells.emplace(toDisplay(row[0]),
                    row[1].isNull() ? StoredValue() : StoredValue(toDisplay(row[1])));
    }
  }
  return cells;
}

}  // namespace kebu::workbench
