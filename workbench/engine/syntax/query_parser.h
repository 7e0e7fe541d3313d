#pragma once

#include <optional>

#include "workbench/engine/syntax/expression_parser.h"

namespace kebu::engine {

/// SELECT in all its forms, and the sources behind FROM.
class QueryParser {
 public:
  QueryParser(TokenReader& reader, const LiteralTypes* literals);

  /// [WITH …] SELECT …, VALUES …, UNION, ORDER BY.
  ast::QueryPtr query();
  /// What stands behind FROM: sources joined by commas and JOINs.
  ast::SourcePtr sources();
  ast::SourcePtr singleSource();
  /// ( expression | DEFAULT, … ), … behind VALUES.
  std::vector<std::vector<ast::ExprPtr>> rows();
  ExpressionParser& expressions() { return expressions_; }

 private:
  ast::QueryPtr setOperations();
  ast::QueryPtr intersections();
  ast::QueryPtr operand();
  ast::Select select();
  ast::SelectItem selectItem();
  std::optional<ast::JoinKind> joinKind();
  ast::SourcePtr joined();
  std::string alias();
  void tableHints();

  TokenReader& reader_;
  ExpressionParser expressions_;
};

}  // namespace kebu::engine
