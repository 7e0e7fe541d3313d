#include "controls/query_condition.h"

#include <algorithm>
#include <array>

#include "common/convert.h"
#include "common/error.h"

namespace kebu::controls {

namespace {

// What restricts nothing stands first; it is also what clears a field.
constexpr std::array operators{
    OperatorTraits{QueryOperator::Any, "clear", "qualsiasi", 1, false},
    OperatorTraits{QueryOperator::Equal, "=", "uguale a", 1, false},
    OperatorTraits{QueryOperator::Different, "<>", "diverso da", 1, false},
    OperatorTraits{QueryOperator::Range, "between", "compreso tra", 2, false},
    OperatorTraits{QueryOperator::Starts, "starts", "inizia con", 1, true},
    OperatorTraits{QueryOperator::Contains, "contains", "contiene", 1, true},
    OperatorTraits{QueryOperator::OneOf, "in", "uno tra", 1, false},
    OperatorTraits{QueryOperator::Empty, "empty", "vuoto", 0, false},
    OperatorTraits{QueryOperator::NotEmpty, "not-empty", "non vuoto", 0, false},
};

std::string quoted(std::string_view text) {
  return "'" + replaceAll(std::string(text), "'", "''") + "'";
}

/// A number without leading zeros: it may be typed "007".
std::string wholeNumber(std::string_view text) {
  if (!isWholeNumber(text)) throw RuntimeError::typeMismatch();
  const bool negative = text.front() == '-';
  text.remove_prefix(negative ? 1 : 0);
  const std::size_t first = std::min(text.find_first_not_of('0'), text.size() - 1);
  const std::string digits(text.substr(first));
  return (negative && digits != "0" ? "-" : "") + digits;
}

/// The column's prefix, "PD18_", is not to be found in the literal: whoever
/// qualifies columns by replacing it must not change a value.
std::string textLiteral(const QueryColumn& column, std::string_view value) {
  const std::size_t end = column.name.find('_');
  if (end == std::string_view::npos) return quoted(value);
  const std::string prefix(column.name.substr(0, end));
  return replaceAll(quoted(value), prefix + "_", prefix + "' + '_");
}

std::string literal(const QueryColumn& column, std::string_view value) {
  return column.isNumeric ? wholeNumber(value) : textLiteral(column, value);
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

bool isAlphanumeric(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
}

/// Digits before letters and letters in their order hold in every collation
/// that the database may have; signs and accents are another matter.
bool isTextReversed(std::string_view first, std::string_view second) {
  const std::string low = trimRight(toUpperAscii(first));
  const std::string high = trimRight(toUpperAscii(second));
  const std::size_t shorter = std::min(low.size(), high.size());
  for (std::size_t i = 0; i < shorter; ++i) {
    if (low[i] == high[i]) continue;
    return isAlphanumeric(low[i]) && isAlphanumeric(high[i]) && low[i] > high[i];
  }
  return low.size() > high.size() && isAlphanumeric(low[shorter]);
}

bool isNumberReversed(std::string_view first, std::string_view second) {
  const std::string low = wholeNumber(first);
  const std::string high = wholeNumber(second);
  const bool negative = low.front() == '-';
  if (negative != (high.front() == '-')) return !negative;
  const auto greater = [](const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() > b.size() : a > b;
  };
  return negative ? greater(high, low) : greater(low, high);
}

}  // namespace

std::span<const OperatorTraits> queryOperators() {
  return operators;
}

const OperatorTraits& traitsOf(QueryOperator op) {
  return operators.at(static_cast<std::size_t>(op));
}

std::optional<QueryOperator> operatorByCode(std::string_view code) {
  const auto* const at = std::find_if(operators.begin(), operators.end(),
                                      [&](const OperatorTraits& t) { return t.code == code; });
  return at == operators.end() ? std::nullopt : std::optional(at->op);
}

std::string composePredicate(const QueryColumn& column, const QueryCondition& condition) {
  if (condition.op == QueryOperator::Any) return "";
  const std::string name(column.name);
  const auto value = [&](std::size_t i) {
    return i < condition.values.size() ? trimRight(condition.values[i]) : std::string();
  };
  const std::string first = value(0);
  const bool takesOne = traitsOf(condition.op).values == 1;
  if (takesOne && condition.op != QueryOperator::OneOf && first.empty()) return "";
  switch (condition.op) {
    case QueryOperator::Any:
      return "";
    case QueryOperator::Equal:
      return name + " = " + literal(column, first);
    case QueryOperator::Different:
      // What has no value is different too; parenthesised, since it is put behind AND.
      return "(" + name + " <> " + literal(column, first) + " OR " + name + " IS NULL)";
    case QueryOperator::Range:
      return rangePredicate(column, first, value(1));
    case QueryOperator::Starts:
      return name + " LIKE " + quoted(pattern(first) + "%");
    case QueryOperator::Contains:
      return name + " LIKE " + quoted("%" + pattern(first) + "%");
    case QueryOperator::OneOf:
      return listPredicate(column, condition.values);
    case QueryOperator::Empty:
      return emptyPredicate(column);
    case QueryOperator::NotEmpty:
      return notEmptyPredicate(column);
  }
  return "";
}

bool isWholeNumber(std::string_view text) {
  constexpr std::size_t mostDigits = 18;
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && text.size() <= mostDigits &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool isReversed(const QueryColumn& column, std::string_view first, std::string_view second) {
  if (first.empty() || second.empty()) return false;
  return column.isNumeric ? isNumberReversed(first, second) : isTextReversed(first, second);
}

std::vector<std::string> splitList(std::string_view text) {
  std::vector<std::string> items;
  std::string item;
  bool isQuoted = false;
  bool inQuotes = false;
  const auto finish = [&] {
    const std::string taken = isQuoted ? item : trim(item);
    if (!taken.empty()) items.push_back(taken);
    item.clear();
    isQuoted = false;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inQuotes) {
      const bool doubled = c == '"' && i + 1 < text.size() && text[i + 1] == '"';
      if (c == '"' && !doubled) {
        inQuotes = false;
      } else {
        item += c;
        i += doubled ? 1 : 0;
      }
    } else if (c == ';') {
      finish();
    } else if (c == '"' && trim(item).empty() && !isQuoted) {
      item.clear();
      inQuotes = isQuoted = true;
    } else if (!isQuoted || c != ' ') {
      item += c;
    }
  }
  finish();
  return items;
}

std::string joinList(std::span<const std::string> items) {
  std::string text;
  for (const std::string& item : items) {
    const bool plain =
        item.find(';') == std::string::npos && !item.starts_with('"') && trim(item) == item;
    text +=
        (text.empty() ? "" : "; ") + (plain ? item : "\"" + replaceAll(item, "\"", "\"\"") + "\"");
  }
  return text;
}

}  // namespace kebu::controls
