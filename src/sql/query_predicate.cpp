#include "sql/query_predicate.h"

#include <span>
#include <string_view>

#include "common/convert.h"

namespace kebu::sql {

namespace {

std::string quoted(std::string_view text) {
  return "'" + replaceAll(std::string(text), "'", "''") + "'";
}

/// The column's prefix ("PD18_") is split where it occurs in the value: columns are
/// qualified by replacing the prefix in the whole text, and values must not change.
std::string textLiteral(const QueryColumn& column, std::string_view value) {
  const std::size_t end = column.name.find('_');
  if (end == std::string_view::npos) return quoted(value);
  const std::string prefix(column.name.substr(0, end));
  return replaceAll(quoted(value), prefix + "_", prefix + "' + '_");
}

std::string literal(const QueryColumn& column, std::string_view value) {
  return column.isNumeric ? normalizedWholeNumber(value) : textLiteral(column, value);
}

/// The text for LIKE, in which %, _ and [ stand for themselves between brackets.
std::string pattern(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '%' || c == '_' || c == '[') {
      escaped += std::string("[") + c + "]";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string rangePredicate(const QueryColumn& column, const std::string& first,
                           const std::string& second) {
  const std::string name(column.name);
  if (first.empty() && second.empty()) return "";
  if (second.empty()) return name + " >= " + literal(column, first);
  if (first.empty()) return name + " <= " + literal(column, second);
  return name + " BETWEEN " + literal(column, first) + " AND " + literal(column, second);
}

std::string listPredicate(const QueryColumn& column, std::span<const std::string> items) {
  std::string list;
  for (const std::string& item : items) {
    if (item.empty()) continue;
    list += (list.empty() ? "" : ", ") + literal(column, item);
  }
  return list.empty() ? "" : std::string(column.name) + " IN (" + list + ")";
}

std::string emptyPredicate(const QueryColumn& column) {
  const std::string name(column.name);
  // A number compared with an empty text would be one compared with 0.
  if (column.isNumeric) return name + " IS NULL";
  return "(" + name + " IS NULL OR " + name + " = '')";
}

std::string notEmptyPredicate(const QueryColumn& column) {
  // An unknown value is not different from anything: no row without one passes.
  return std::string(column.name) + (column.isNumeric ? " IS NOT NULL" : " <> ''");
}

/// Of an operator that takes one value, which is given.
std::string comparison(const QueryColumn& column, QueryOperator op, const std::string& value) {
  const std::string name(column.name);
  switch (op) {
    case QueryOperator::Equal:
      return name + " = " + literal(column, value);
    case QueryOperator::Different:
      // What has no value is different too; parenthesised, since it is put behind AND.
      return "(" + name + " <> " + literal(column, value) + " OR " + name + " IS NULL)";
    case QueryOperator::Starts:
      return name + " LIKE " + quoted(pattern(value) + "%");
    case QueryOperator::Contains:
      return name + " LIKE " + quoted("%" + pattern(value) + "%");
    default:
      return "";
  }
}

}  // namespace

std::string composePredicate(const QueryColumn& column, const QueryCondition& condition) {
  const auto value = [&](std::size_t i) {
    return i < condition.values.size() ? trimRight(condition.values[i]) : std::string();
  };
  switch (condition.op) {
    case QueryOperator::Any:
      return "";
    case QueryOperator::Equal:
    case QueryOperator::Different:
    case QueryOperator::Starts:
    case QueryOperator::Contains:
      return value(0).empty() ? "" : comparison(column, condition.op, value(0));
    case QueryOperator::Range:
      return rangePredicate(column, value(0), value(1));
    case QueryOperator::OneOf:
      return listPredicate(column, condition.values);
    case QueryOperator::Empty:
      return emptyPredicate(column);
    case QueryOperator::NotEmpty:
      return notEmptyPredicate(column);
  }
  return "";
}

std::string composeConjunction(const std::vector<std::string>& predicates) {
  std::string text;
  for (const std::string& predicate : predicates) {
    if (!predicate.empty()) text += " AND (" + predicate + ")";
  }
  return text;
}

}  // namespace kebu::sql
