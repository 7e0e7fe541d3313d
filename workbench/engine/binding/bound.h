#pragma once

#include <string>
#include <vector>

#include "workbench/engine/catalogue/catalogue.h"
#include "workbench/engine/values/types.h"

namespace kebu::engine {

/// An expression made into SQLite's language, with the type that T-SQL gives it.
struct Bound {
  std::string sql;
  SqlType type;
  bool nullable = true;
  std::string baseColumn = {};   ///< when it is a table's column and nothing else
  bool isConcatenation = false;  ///< it is texts joined by "||", in parentheses
};

/// Whether T-SQL has no conversion between the types: numbers and date.
bool clash(const SqlType& from, const SqlType& to);
/// CAST, CONVERT and the conversions between operands. SqlError 206 where there is none.
Bound cast(const Bound& value, const SqlType& to, int style = 0);
/// The value as it goes into a column: texts too long and numbers too large are errors.
std::string stored(const Bound& value, const TableColumn& column, const std::string& table);
/// A comparison of two values in their common type.
std::string comparison(ComparisonOperator op, const Bound& left, const Bound& right);
/// Brings two values to the type in which they can be compared as SQLite does.
void makeComparable(Bound& a, Bound& b);
/// An arithmetic operator over numbers, texts and dates. SqlError 402 when they do not mix.
Bound arithmetic(ArithmeticOperator op, const Bound& left, const Bound& right);
Bound negated(const Bound& value);
/// Whether both types are kept in SQLite in the same way.
bool sameStorage(const SqlType& a, const SqlType& b);
/// The value with the collation that compares as SQL Server does, if it is a text.
std::string collated(const Bound& value);

}  // namespace kebu::engine
