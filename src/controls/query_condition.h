#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kebu::controls {

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

/// What an operator looks like and takes.
struct OperatorTraits {
  QueryOperator op;
  std::string_view code;
  std::string_view caption;  ///< in Italian
  int values;                ///< boxes that it takes values from
  bool ofTextOnly;
};

/// All, in the order in which they are offered.
std::span<const OperatorTraits> queryOperators();
const OperatorTraits& traitsOf(QueryOperator op);
/// By its code; nothing for an unknown one.
std::optional<QueryOperator> operatorByCode(std::string_view code);

/// A column as the composed text names it.
struct QueryColumn {
  std::string_view name;
  bool isNumeric = false;  ///< holds whole numbers; else texts
};

/// What a user states on a column. `values` are as typed: one or two of a
/// range (either may be ""), the items of OneOf, one of the others.
struct QueryCondition {
  QueryOperator op = QueryOperator::Any;
  std::vector<std::string> values;

  friend bool operator==(const QueryCondition&, const QueryCondition&) = default;
};

/// The T-SQL predicate, to be put behind AND as it stands; "" when nothing is
/// restricted. Quotes and wildcards in values stand for themselves.
/// RuntimeError 13 for a value of a numeric column that is no whole number.
std::string composePredicate(const QueryColumn& column, const QueryCondition& condition);

/// Whether `text` is a whole number of at most 18 digits, as numeric columns take it.
bool isWholeNumber(std::string_view text);

/// Whether nothing can lie between the two values because they stand the wrong
/// way round. Texts whose order depends on the database's collation are not.
bool isReversed(const QueryColumn& column, std::string_view first, std::string_view second);

/// The items of a list as people type it: between semicolons, in double quotes
/// where an item holds one. Blanks around items do not count.
std::vector<std::string> splitList(std::string_view text);
std::string joinList(std::span<const std::string> items);

}  // namespace kebu::controls
