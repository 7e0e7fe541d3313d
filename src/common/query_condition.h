#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kebu {

enum class QueryOperator : std::uint8_t {
  Any,  ///< restricts nothing
  Equal,
  Different,
  Range,
  Starts,
  Contains,
  OneOf,
  Empty,
  NotEmpty,
};

/// A column of the database on which a condition is stated.
struct QueryColumn {
  std::string_view name;
  bool isNumeric = false;  ///< holds whole numbers; else texts
};

/// A condition on a column. `values` are as typed: one or two of a range (either
/// may be ""), the items of OneOf, one of the others.
struct QueryCondition {
  QueryOperator op = QueryOperator::Any;
  std::vector<std::string> values;

  friend bool operator==(const QueryCondition&, const QueryCondition&) = default;
};

/// Writes conditions in the language of the database.
struct QueryComposer {
  /// The predicate of a condition, "" for one that restricts nothing. RuntimeError 13
  /// for a value that the column cannot be compared with.
  std::string (*predicate)(const QueryColumn& column, const QueryCondition& condition);
  /// All predicates together, to be put behind another condition; "" when all are "".
  std::string (*conjunction)(const std::vector<std::string>& predicates);
};

/// Whether `text` is a whole number of at most 18 digits, as numeric columns take it.
bool isWholeNumber(std::string_view text);
/// The number without leading zeros, "-7" for "-007"; RuntimeError 13 when
/// `text` is no whole number.
std::string normalizedWholeNumber(std::string_view text);

/// Whether a range is empty because its ends stand the wrong way round; an end
/// that is "" is open. False for texts whose order depends on the database's
/// collation. RuntimeError 13 for an end of a numeric column that is no number.
bool isReversed(const QueryColumn& column, std::string_view first, std::string_view second);

}  // namespace kebu
