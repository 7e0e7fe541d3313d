#pragma once

#include <cstdint>
#include <string_view>

namespace kebu::engine {

enum class ArithmeticOperator : std::uint8_t {
  Add,
  Subtract,
  Multiply,
  Divide,
  Modulo,
  BitAnd,
  BitOr,
  BitXor
};
enum class ComparisonOperator : std::uint8_t {
  Equal,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual
};
enum class LogicalOperator : std::uint8_t { And, Or };
enum class SetOperator : std::uint8_t { Union, UnionAll, Except, Intersect };

/// The operators as T-SQL and SQLite both write them. SQLite has no "^".
std::string_view symbolOf(ArithmeticOperator op);
std::string_view symbolOf(ComparisonOperator op);
std::string_view symbolOf(LogicalOperator op);
std::string_view symbolOf(SetOperator op);

}  // namespace kebu::engine
