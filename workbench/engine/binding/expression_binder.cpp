#include "workbench/engine/binding/expression_binder.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "common/overloaded.h"
#include "workbench/engine/binding/builtins.h"
#include "workbench/engine/binding/query_binder.h"
#include "workbench/engine/sqlite.h"
#include "workbench/engine/values/cell.h"

namespace kebu::engine {
namespace {

std::string literalText(const Cell& cell) {
  switch (cell.kind) {
    case Cell::Kind::Null:
      return "NULL";
    case Cell::Kind::Integer:
      return std::to_string(cell.integer);
    case Cell::Kind::Text:
      return textLiteral(cell.bytes);
    case Cell::Kind::Blob:
      break;
  }
  static constexpr std::string_view digits = "0123456789abcdef";
  std::string text = "x'";
  for (const char c : cell.bytes) {
    text += digits[static_cast<unsigned char>(c) >> 4];
    text += digits[static_cast<unsigned char>(c) & 15];
  }
  return text + "'";
}

/// Conditions joined in halves: SQLite limits the depth of an expression, not its width.
std::string joined(LogicalOperator op, std::span<const std::string> conditions) {
  if (conditions.size() == 1) return conditions.front();
  const std::size_t half = conditions.size() / 2;
  return "(" + joined(op, conditions.first(half)) + " " + std::string(symbolOf(op)) + " " +
         joined(op, conditions.subspan(half)) + ")";
}

SqlError noConversion(const SqlType& from, const SqlType& to) {
  return {529, "Explicit conversion from data type " + from.declaration() + " to " +
                   to.declaration() + " is not allowed."};
}

SqlError oneColumnOnly() {
  return {116, "Only one expression can be specified in the select list of a subquery."};
}

}  // namespace

Bound ExpressionBinder::value(const ast::Expr& expr, const Scope& scope) {
  const std::size_t ungrouped = scope.findings != nullptr ? scope.findings->ungrouped.size() : 0;
  Bound result = std::visit(
      Overloaded{[&](const ast::Literal& node) { return literal(node); },
                 [&](const ast::Variable& node) { return context_.variable(node.name, expr.at); },
                 [&](const ast::Column& node) { return resolveColumn(scope, node); },
                 [&](const ast::Negative& node) { return negated(value(*node.operand, scope)); },
                 [&](const ast::Arithmetic& node) {
                   const Bound left = value(*node.left, scope);
                   return arithmetic(node.op, left, value(*node.right, scope));
                 },
                 [&](const ast::Case& node) { return caseValue(node, scope); },
                 [&](const ast::Call& node) { return call(node, expr.at, scope); },
                 [&](const ast::Cast& node) {
                   const Bound operand = value(*node.operand, scope);
                   if (clash(operand.type, node.type)) throw noConversion(operand.type, node.type);
                   return cast(operand, node.type, node.style);
                 },
                 [&](const ast::Subquery& node) { return subquery(node, scope); },
                 [&](const auto&) -> Bound {
                   throw SqlError(102, "A condition stands where a value is expected.");
                 }},
      expr.node);
  BindingContext::checkSize(result.sql);
  if (scope.findings != nullptr) scope.findings->group(result.sql, ungrouped);
  return result;
}

std::string ExpressionBinder::condition(const ast::Expr& expr, const Scope& scope) {
  return std::visit(
      Overloaded{
          [&](const ast::Not& node) { return "(NOT " + condition(*node.operand, scope) + ")"; },
          [&](const ast::Logical& node) { return logical(node, scope); },
          [&](const ast::Comparison& node) {
            const Bound left = value(*node.left, scope);
            return comparison(node.op, left, value(*node.right, scope));
          },
          [&](const ast::In& node) { return in(node, scope); },
          [&](const ast::Like& node) { return like(node, scope); },
          [&](const ast::IsNull& node) {
            return "(" + value(*node.operand, scope).sql + " IS NULL)";
          },
          [&](const ast::Exists& node) {
            return "EXISTS (" + QueryBinder(context_).inner(*node.query, &scope).sql + ")";
          },
          [&](const auto&) -> std::string {
            throw SqlError(4145,
                           "An expression of non-boolean type specified where a condition is "
                           "expected, near '" +
                               std::string(expr.at) + "'.");
          }},
      expr.node);
}

std::string ExpressionBinder::logical(const ast::Logical& node, const Scope& scope) {
  std::vector<std::string> operands;
  operands.reserve(node.operands.size());
  for (const auto& operand : node.operands) operands.push_back(condition(*operand, scope));
  std::string sql = joined(node.op, operands);
  BindingContext::checkSize(sql);
  return sql;
}

Bound ExpressionBinder::subquery(const ast::Subquery& node, const Scope& scope) {
  const BoundQuery inner = QueryBinder(context_).inner(*node.query, &scope);
  if (inner.columns.size() != 1) throw oneColumnOnly();
  // SQLite would take the first of several rows.
  const std::string sql =
      inner.singleRow ? inner.sql : "SELECT kb_single(c1) FROM (" + inner.sql + ")";
  return {"(" + sql + ")", inner.columns[0].type, true};
}

Bound ExpressionBinder::literal(const ast::Literal& node) {
  if (node.slot >= 0) return context_.literalSlot(node.slot, node.type);
  return {literalText(storedAs(node.value, node.type)), node.type, node.value.isNull()};
}

Bound ExpressionBinder::caseValue(const ast::Case& node, const Scope& scope) {
  std::vector<Bound> results;
  std::vector<std::string> conditions;
  for (const auto& branch : node.branches) {
    conditions.push_back(condition(*branch.condition, scope));
    results.push_back(value(*branch.result, scope));
  }
  if (node.otherwise) results.push_back(value(*node.otherwise, scope));
  SqlType type;
  bool nullable = !node.otherwise;
  for (const auto& result : results) {
    type = unify(type, result.type);
    nullable = nullable || result.nullable;
  }
  std::string sql = "CASE";
  for (std::size_t i = 0; i < conditions.size(); ++i) {
    sql += " WHEN " + conditions[i] + " THEN " + cast(results[i], type).sql;
  }
  if (node.otherwise) sql += " ELSE " + cast(results.back(), type).sql;
  return {"(" + sql + " END)", type, nullable};
}

std::string ExpressionBinder::in(const ast::In& node, const Scope& scope) {
  Bound operand = value(*node.operand, scope);
  if (node.query) {
    BoundQuery inner = QueryBinder(context_).inner(*node.query, &scope);
    if (inner.columns.size() != 1) throw oneColumnOnly();
    const SqlType common = unify(operand.type, inner.columns[0].type);
    if (!sameStorage(operand.type, common)) operand = cast(operand, common);
    if (!sameStorage(inner.columns[0].type, common))
      inner = convertedTo({common}, std::move(inner));
    return "(" + collated(operand) + " IN (" + inner.sql + "))";
  }
  // Each element is compared in the type that it and the operand share.
  std::vector<std::string> comparisons;
  comparisons.reserve(node.list.size());
  for (const auto& item : node.list) {
    comparisons.push_back(comparison(ComparisonOperator::Equal, operand, value(*item, scope)));
  }
  std::string sql = joined(LogicalOperator::Or, comparisons);
  BindingContext::checkSize(sql);
  return sql;
}

std::string ExpressionBinder::like(const ast::Like& node, const Scope& scope) {
  const auto text = [&](const ast::Expr& expr) {
    return cast(value(expr, scope), SqlType::text(-1)).sql;
  };
  std::string sql = "kb_like(" + text(*node.operand);
  sql += ", " + text(*node.pattern);
  if (node.escape) sql += ", " + text(*node.escape);
  return sql + ")";
}

Bound ExpressionBinder::call(const ast::Call& node, std::string_view at, const Scope& scope) {
  if (isAggregate(node.name) && node.schema.empty()) return aggregate(node, scope);
  if (node.over) return ranking(node, scope);
  if (node.name == "IIF") {
    if (node.args.size() != 3) throw SqlError(174, "The IIF function requires 3 arguments.");
    return caseValue({{{node.args[0], node.args[1]}}, node.args[2]}, scope);
  }
  std::vector<Bound> args;
  args.reserve(node.args.size());
  for (const auto& arg : node.args) args.push_back(value(*arg, scope));
  if (node.schema.empty()) {
    if (const auto builtin = callBuiltin(node.name, args)) return *builtin;
  }
  return scalarFunction(node, at, args);
}

Bound ExpressionBinder::ranking(const ast::Call& node, const Scope& scope) {
  static constexpr std::array<std::string_view, 3> rankings{"ROW_NUMBER", "RANK", "DENSE_RANK"};
  if (std::find(rankings.begin(), rankings.end(), node.name) == rankings.end()) {
    throw SqlError(195, "'" + node.name + "' is not a window function that is known.");
  }
  return {node.name + "()" + window(*node.over, scope), SqlType::integer(TypeKind::BigInt), false};
}

Bound ExpressionBinder::scalarFunction(const ast::Call& node, std::string_view at,
                                       const std::vector<Bound>& args) {
  if (node.schema.empty()) {
    throw SqlError(195, "'" + std::string(at) + "' is not a recognized built-in function name.");
  }
  const ModulePtr module = context_.catalogue().module({{node.schema, node.name}, at});
  if (!module || module->tree.kind != ast::ModuleKind::ScalarFunction) {
    throw SqlError(4121, "Cannot find either column \"" + node.schema +
                             "\" or the user-defined function or aggregate \"" + node.schema + "." +
                             std::string(at) + "\", or the name is ambiguous.");
  }
  const auto& parameters = module->tree.parameters;
  if (args.size() > parameters.size())
    throw SqlError(8144, "Function " + node.name + " has too many arguments specified.");
  std::string sql = "kb_call(" + textLiteral(node.name);
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (i < args.size()) {
      sql += ", " + cast(args[i], parameters[i].type).sql;
    } else if (parameters[i].defaultValue) {
      sql += ", " + cast(value(*parameters[i].defaultValue, {}), parameters[i].type).sql;
    } else {
      throw SqlError(313, "An insufficient number of arguments were supplied for the function " +
                              node.name + ".");
    }
  }
  return {sql + ")", module->tree.returns};
}

/// Whether an aggregate may stand here.
void ExpressionBinder::checkAggregate(const Scope& scope) {
  using Clause = SelectFindings::Clause;
  SelectFindings* const findings = scope.findings;
  if (findings == nullptr)
    throw SqlError(157, "An aggregate may not appear where there is no SELECT for it.");
  if (findings->inAggregate) {
    throw SqlError(130,
                   "Cannot perform an aggregate function on an expression containing an aggregate "
                   "or a subquery.");
  }
  if (findings->clause == Clause::GroupBy) {
    throw SqlError(144,
                   "Cannot use an aggregate or a subquery in an expression used for the group by "
                   "list of a GROUP BY clause.");
  }
  if (findings->clause == Clause::Where) {
    throw SqlError(147,
                   "An aggregate may not appear in the WHERE clause unless it is in a subquery "
                   "contained in a HAVING clause or a select list, and the column being aggregated "
                   "is an outer reference.");
  }
  if (findings->clause == Clause::From) {
    throw SqlError(
        1015,
        "An aggregate cannot appear in an ON clause unless it is in a subquery contained "
        "in a HAVING clause or select list, and the column being aggregated is an outer "
        "reference.");
  }
  findings->aggregated = true;
}

/// The argument of an aggregate, whose columns need not be grouped.
Bound ExpressionBinder::aggregated(const ast::Expr& expr, const Scope& scope) {
  SelectFindings& findings = *scope.findings;
  const std::size_t ungrouped = findings.ungrouped.size();
  findings.inAggregate = true;
  Bound result = value(expr, scope);
  findings.inAggregate = false;
  findings.ungrouped.resize(ungrouped);
  return result;
}

Bound ExpressionBinder::aggregate(const ast::Call& node, const Scope& scope) {
  const std::string over = node.over ? window(*node.over, scope) : std::string();
  if (!node.over) checkAggregate(scope);
  if (node.star) return {"count(*)" + over, SqlType::integer(), false};
  if (node.args.size() != 1)
    throw SqlError(174, "The " + node.name + " function requires 1 argument.");
  const Bound arg = node.over ? value(*node.args[0], scope) : aggregated(*node.args[0], scope);
  const std::string distinct = node.distinct ? "DISTINCT " : "";
  if (node.name == "COUNT" || node.name == "COUNT_BIG") {
    const TypeKind kind = node.name == "COUNT" ? TypeKind::Int : TypeKind::BigInt;
    return {"count(" + distinct + collated(arg) + ")" + over, SqlType::integer(kind), false};
  }
  if (node.name == "MIN" || node.name == "MAX") {
    return {(node.name == "MIN" ? "min(" : "max(") + collated(arg) + ")" + over, arg.type};
  }
  if (!arg.type.isNumber() && arg.type.kind != TypeKind::Null) {
    throw SqlError(8117, "Operand data type " + arg.type.declaration() + " is invalid for " +
                             node.name + " operator.");
  }
  const SqlType decimal = SqlType::decimal(38, arg.type.asDecimal().scale);
  const bool isDecimal = arg.type.kind == TypeKind::Decimal;
  const SqlType sumType =
      isDecimal ? decimal : SqlType::integer(std::max(arg.type.kind, TypeKind::Int));
  const Bound sum{isDecimal ? "kb_sum(" + distinct + cast(arg, decimal).sql + ")" + over
                            : "sum(" + distinct + arg.sql + ")" + over,
                  sumType};
  if (node.name == "SUM")
    return isDecimal ? sum : cast({sum.sql, SqlType::integer(TypeKind::BigInt)}, sumType);
  const Bound count{"count(" + distinct + arg.sql + ")" + over, SqlType::integer()};
  return cast(arithmetic(ArithmeticOperator::Divide, sum, count),
              isDecimal ? SqlType::decimal(38, std::max(decimal.scale, 6)) : sumType);
}

std::string ExpressionBinder::window(const ast::Over& over, const Scope& scope) {
  if (scope.findings == nullptr || scope.findings->clause != SelectFindings::Clause::Rows) {
    throw SqlError(4108, "Windowed functions can only appear in the SELECT or ORDER BY clauses.");
  }
  std::string sql;
  for (const auto& item : over.partitionBy) {
    sql += (sql.empty() ? "PARTITION BY " : ", ") + collated(value(*item, scope));
  }
  if (!over.orderBy.empty()) sql += " ORDER BY " + orderList(over.orderBy, scope);
  return " OVER (" + sql + ")";
}

std::string ExpressionBinder::orderList(const std::vector<ast::OrderItem>& items,
                                        const Scope& scope) {
  std::string sql;
  for (const auto& item : items) {
    sql += (sql.empty() ? "" : ", ") + collated(value(*item.expr, scope)) +
           (item.descending ? " DESC" : "");
  }
  return sql;
}

}  // namespace kebu::engine
