#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/engine/binding/binding_context.h"
#include "workbench/engine/binding/scope.h"

namespace kebu::engine {

/// Makes expressions and conditions into SQLite's language: names become columns, and
/// every expression gets the type that T-SQL gives it.
class ExpressionBinder {
 public:
  explicit ExpressionBinder(BindingContext& context) : context_(context) {}

  Bound value(const ast::Expr& expr, const Scope& scope);
  std::string condition(const ast::Expr& expr, const Scope& scope);

 private:
  Bound literal(const ast::Literal& node);
  Bound caseValue(const ast::Case& node, const Scope& scope);
  Bound call(const ast::Call& node, std::string_view at, const Scope& scope);
  Bound scalarFunction(const ast::Call& node, std::string_view at, const std::vector<Bound>& args);
  Bound ranking(const ast::Call& node, const Scope& scope);
  Bound aggregate(const ast::Call& node, const Scope& scope);
  static void checkAggregate(const Scope& scope);
  Bound aggregated(const ast::Expr& expr, const Scope& scope);
  Bound subquery(const ast::Subquery& node, const Scope& scope);
  std::string logical(const ast::Logical& node, const Scope& scope);
  std::string in(const ast::In& node, const Scope& scope);
  std::string like(const ast::Like& node, const Scope& scope);
  std::string window(const ast::Over& over, const Scope& scope);
  std::string orderList(const std::vector<ast::OrderItem>& items, const Scope& scope);

  BindingContext& context_;
};

}  // namespace kebu::engine
