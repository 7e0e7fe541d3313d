#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <utility>

#include "workbench/engine/syntax/parser.h"
#include "workbench/engine/syntax/token_reader.h"

namespace kebu::engine {

template <class Operator>
using OperatorSymbol = std::pair<std::string_view, Operator>;

/// Expressions and conditions, which T-SQL keeps apart by their place only.
class ExpressionParser {
 public:
  /// `literals`: the types of the batch's literals when they are to be lifted, or null.
  ExpressionParser(TokenReader& reader, const LiteralTypes* literals)
      : reader_(reader), literals_(literals) {}

  /// A value.
  ast::ExprPtr expression();
  /// A value, or null for DEFAULT.
  ast::ExprPtr valueOrDefault();
  /// A value without operators around it, where an operator's sign means something else.
  ast::ExprPtr primary();
  /// A condition: OR of ANDs. SqlError 4145 for a value.
  ast::ExprPtr condition();
  std::vector<ast::OrderItem> orderItems();
  std::vector<ast::ExprPtr> list();
  /// Reads a query; set by the parser of queries.
  std::function<ast::QueryPtr()> query;

 private:
  using ExprPtr = ast::ExprPtr;

  ExprPtr conjunction();
  /// Operands that one logical operator joins.
  ExprPtr chain(LogicalOperator op, ExprPtr (ExpressionParser::*operand)());
  ExprPtr negation();
  ExprPtr predicate();
  ExprPtr comparisonTail(ExprPtr left);
  ExprPtr conditionOrValue();
  /// The expression itself; SqlError 102 when it is a condition.
  ExprPtr value(ExprPtr expr) const;
  ExprPtr sum();
  ExprPtr term();
  /// Operands that operators of one rank join, from the left to the right.
  ExprPtr arithmetic(std::span<const OperatorSymbol<ArithmeticOperator>> operators,
                     ExprPtr (ExpressionParser::*operand)());
  ExprPtr unary();
  ExprPtr literal();
  ExprPtr caseExpression();
  ExprPtr castExpression();
  ExprPtr convertExpression();
  ExprPtr nameOrCall();
  ExprPtr call(std::string schema, std::string name, std::string_view at);
  ast::Over over();

  TokenReader& reader_;
  const LiteralTypes* literals_;
  int caseDepth_ = 0;
};

}  // namespace kebu::engine
