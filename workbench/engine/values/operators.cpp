#include "workbench/engine/values/operators.h"

#include <array>
#include <cstddef>

namespace kebu::engine {
namespace {

constexpr std::array<std::string_view, 8> arithmeticSymbols{"+", "-", "*", "/", "%", "&", "|", "^"};
constexpr std::array<std::string_view, 6> comparisonSymbols{"=", "<>", "<", "<=", ">", ">="};
constexpr std::array<std::string_view, 2> logicalSymbols{"AND", "OR"};
constexpr std::array<std::string_view, 4> setSymbols{"UNION", "UNION ALL", "EXCEPT", "INTERSECT"};

}  // namespace

std::string_view symbolOf(ArithmeticOperator op) {
  return arithmeticSymbols.at(static_cast<std::size_t>(op));
}

std::string_view symbolOf(ComparisonOperator op) {
  return comparisonSymbols.at(static_cast<std::size_t>(op));
}

std::string_view symbolOf(LogicalOperator op) {
  return logicalSymbols.at(static_cast<std::size_t>(op));
}

std::string_view symbolOf(SetOperator op) {
  return setSymbols.at(static_cast<std::size_t>(op));
}

}  // namespace kebu::engine
