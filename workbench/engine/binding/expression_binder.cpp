// The part of Binder that binds expressions and conditions.

#include <algorithm>
#include <array>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/binding/binder.h"
#include "workbench/engine/binding/builtins.h"
#include "workbench/engine/sqlite.h"
#include "workbench/engine/values/cell.h"

namespace kebu::engine {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

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

bool isComparison(const std::string& op) {
  static constexpr std::array<std::string_view, 6> operators{"=", "<>", "<", ">", "<=", ">="};
  return std::find(operators.begin(), operators.end(), op) != operators.end();
}

[[noreturn]] void notAValue() {
  throw SqlError(102, "A condition stands where a value is expected.");
}

}  // namespace

SqlError unknownColumn(const std::string& name) {
  return {207, "Invalid column name '" + name + "'.", "42S22"};
}

Bound Binder::expression(const ast::Expr& expr, const Scope& scope) {
  return std::visit(
      Overloaded{[&](const ast::Literal& node) { return literal(node); },
                 [&](const ast::Variable& node) { return variable(node.name, expr.at); },
                 [&](const ast::Column& node) { return column(node, expr.at, scope); },
                 [&](const ast::Unary& node) {
                   if (node.op != "-") notAValue();
                   return negated(expression(*node.operand, scope));
                 },
                 [&](const ast::Binary& node) {
                   if (node.op.size() != 1 || isComparison(node.op)) notAValue();
                   const Bound left = expression(*node.left, scope);
                   return arithmetic(node.op.front(), left, expression(*node.right, scope));
                 },
                 [&](const ast::Case& node) { return caseValue(node, scope); },
                 [&](const ast::Call& node) { return call(node, expr.at, scope); },
                 [&](const ast::Cast& node) {
                   return cast(expression(*node.operand, scope), node.type, node.style);
                 },
                 [&](const ast::Subquery& node) {
                   const BoundQuery inner = query(*node.query, &scope);
                   if (inner.columns.size() != 1) {
                     throw SqlError(
                         116,
                         "Only one expression can be specified in the select list of a subquery.");
                   }
                   return Bound{"(" + inner.sql + ")", inner.columns[0].type, true};
                 },
                 [&](const auto&) -> Bound { notAValue(); }},
      expr.node);
}

std::string Binder::condition(const ast::Expr& expr, const Scope& scope) {
  return std::visit(
      Overloaded{[&](const ast::Unary& node) -> std::string {
                   if (node.op != "not")
                     throw SqlError(4145, "A value stands where a condition is expected.");
                   return "(NOT " + condition(*node.operand, scope) + ")";
                 },
                 [&](const ast::Binary& node) -> std::string {
                   if (node.op == "and" || node.op == "or") {
                     const std::string left = condition(*node.left, scope);
                     return "(" + left + " " + node.op + " " + condition(*node.right, scope) + ")";
                   }
                   if (!isComparison(node.op))
                     throw SqlError(4145, "A value stands where a condition is expected.");
                   const Bound left = expression(*node.left, scope);
                   return comparison(node.op, left, expression(*node.right, scope));
                 },
                 [&](const ast::In& node) { return in(node, scope); },
                 [&](const ast::Like& node) {
                   const SqlType text = SqlType::text(-1);
                   const Bound operand = cast(expression(*node.operand, scope), text);
                   const Bound pattern = cast(expression(*node.pattern, scope), text);
                   std::string sql = "kb_like(" + operand.sql + ", " + pattern.sql;
                   if (node.escape) sql += ", " + cast(expression(*node.escape, scope), text).sql;
                   return sql + ")";
                 },
                 [&](const ast::IsNull& node) {
                   return "(" + expression(*node.operand, scope).sql + " IS NULL)";
                 },
                 [&](const ast::Exists& node) {
                   return "EXISTS (" + query(*node.query, &scope).sql + ")";
                 },
                 [&](const auto&) -> std::string {
                   throw SqlError(
                       4145,
                       "An expression of non-boolean type specified where a condition is "
                       "expected, near '" +
                           std::string(expr.at) + "'.");
                 }},
      expr.node);
}

Bound Binder::slot(Slot wanted) {
  const auto found = std::find_if(slots_.begin(), slots_.end(), [&](const Slot& existing) {
    return existing.literal == wanted.literal && existing.variable == wanted.variable;
  });
  const auto place = static_cast<std::size_t>(found - slots_.begin()) + 1;
  const SqlType type = wanted.type;
  if (found == slots_.end()) slots_.push_back(std::move(wanted));
  return {"?" + std::to_string(place), type};
}

Bound Binder::literal(const ast::Literal& node) {
  if (node.slot >= 0) {
    Bound bound = slot({node.slot, {}, node.type});
    bound.nullable = node.nullable;
    return bound;
  }
  return {literalText(storedAs(node.value, node.type)), node.type, node.value.isNull()};
}

Bound Binder::variable(const std::string& name, std::string_view at) {
  if (arguments_ != nullptr) {
    const auto found = arguments_->find(toUpperAscii(name));
    if (found != arguments_->end()) return found->second;
  } else {
    if (name == "@@ROWCOUNT" || name == "@@TRANCOUNT" || name == "@@ERROR")
      return slot({-1, name, SqlType::integer()});
    if (name == "@@IDENTITY") return slot({-1, name, SqlType::decimal(38, 0)});
    const auto found = variables_.find(name);
    if (found != variables_.end()) return slot({-1, name, found->second.type});
  }
  throw SqlError(137, "Must declare the scalar variable \"" + std::string(at) + "\".");
}

Bound Binder::column(const ast::Column& node, std::string_view at, const Scope& scope) {
  const std::string& name = node.parts.back();
  const std::string qualifier =
      node.parts.size() > 1 ? node.parts[node.parts.size() - 2] : std::string();
  for (const Scope* level = &scope; level != nullptr; level = level->outer) {
    const Bound* found = nullptr;
    Bound row;
    for (const auto& member : level->members) {
      const std::string& known = member.alias.empty() ? member.table : member.alias;
      if (!qualifier.empty() && !equalsIgnoringCase(qualifier, known)) continue;
      if (name == "$ROWID" && member.base) {
        row = {member.sqliteAlias + ".rowid", SqlType::integer(TypeKind::BigInt), false};
        found = &row;
        break;
      }
      for (const auto& [columnName, bound] : member.columns) {
        if (!equalsIgnoringCase(columnName, name)) continue;
        if (found != nullptr) throw SqlError(209, "Ambiguous column name '" + name + "'.");
        found = &bound;
      }
    }
    if (found != nullptr) return *found;
  }
  if (qualifier.empty())
    throw unknownColumn(std::string(at.empty() ? std::string_view(name) : name));
  throw SqlError(4104,
                 "The multi-part identifier \"" + qualifier + "." + name + "\" could not be bound.",
                 "42S22");
}

Bound Binder::caseValue(const ast::Case& node, const Scope& scope) {
  std::vector<Bound> results;
  std::vector<std::string> conditions;
  for (const auto& branch : node.branches) {
    conditions.push_back(condition(*branch.condition, scope));
    results.push_back(expression(*branch.result, scope));
  }
  if (node.otherwise) results.push_back(expression(*node.otherwise, scope));
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

std::string Binder::in(const ast::In& node, const Scope& scope) {
  Bound operand = expression(*node.operand, scope);
  if (node.query) {
    BoundQuery inner = query(*node.query, &scope);
    if (inner.columns.size() != 1) {
      throw SqlError(116, "Only one expression can be specified in the select list of a subquery.");
    }
    const SqlType common = unify(operand.type, inner.columns[0].type);
    const SqlType left = operand.type;
    if (!sameStorage(left, common)) operand = cast(operand, common);
    if (!sameStorage(inner.columns[0].type, common)) inner = converted(std::move(inner), {common});
    return "(" + collated(operand) + " IN (" + inner.sql + "))";
  }
  // Each element is compared in the type that it and the operand share.
  std::string sql;
  for (const auto& item : node.list) {
    sql += (sql.empty() ? "" : " OR ") + comparison("=", operand, expression(*item, scope));
  }
  return "(" + sql + ")";
}

Bound Binder::call(const ast::Call& node, std::string_view at, const Scope& scope) {
  if (isAggregate(node.name)) return aggregate(node, scope);
  if (node.over) {
    static constexpr std::array<std::string_view, 3> rankings{"ROW_NUMBER", "RANK", "DENSE_RANK"};
    if (std::find(rankings.begin(), rankings.end(), node.name) == rankings.end()) {
      throw SqlError(195, "'" + node.name + "' is not a window function that is known.");
    }
    return {node.name + "()" + window(*node.over, scope), SqlType::integer(TypeKind::BigInt),
            false};
  }
  if (node.name == "IIF") {
    if (node.args.size() != 3) throw SqlError(174, "The IIF function requires 3 arguments.");
    return caseValue({{{node.args[0], node.args[1]}}, node.args[2]}, scope);
  }
  std::vector<Bound> args;
  args.reserve(node.args.size());
  for (const auto& arg : node.args) args.push_back(expression(*arg, scope));
  if (const auto builtin = callBuiltin(node.name, args)) return *builtin;
  const ModulePtr module = catalogue_.module({{node.name}, at});
  if (!module || module->tree.kind != ast::ModuleKind::ScalarFunction) {
    throw SqlError(195, "'" + std::string(at) + "' is not a recognized built-in function name.");
  }
  const auto& parameters = module->tree.parameters;
  if (args.size() > parameters.size())
    throw SqlError(8144, "Function " + node.name + " has too many arguments specified.");
  std::string sql = "kb_call(" + textLiteral(node.name);
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (i < args.size()) {
      sql += ", " + cast(args[i], parameters[i].type).sql;
    } else if (parameters[i].defaultValue) {
      sql += ", " + cast(expression(*parameters[i].defaultValue, {}), parameters[i].type).sql;
    } else {
      throw SqlError(313, "An insufficient number of arguments were supplied for the function " +
                              node.name + ".");
    }
  }
  return {sql + ")", module->tree.returns};
}

Bound Binder::aggregate(const ast::Call& node, const Scope& scope) {
  if (!node.over) sawAggregate_ = true;
  const std::string over = node.over ? window(*node.over, scope) : std::string();
  if (node.star) return {"count(*)" + over, SqlType::integer(), false};
  if (node.args.size() != 1)
    throw SqlError(174, "The " + node.name + " function requires 1 argument.");
  Bound arg = expression(*node.args[0], scope);
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
                             toUpperAscii(node.name) + " operator.");
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
  return cast(arithmetic('/', sum, count),
              isDecimal ? SqlType::decimal(38, std::max(decimal.scale, 6)) : sumType);
}

std::string Binder::window(const ast::Over& over, const Scope& scope) {
  std::string sql;
  for (const auto& item : over.partitionBy) {
    sql += (sql.empty() ? "PARTITION BY " : ", ") + collated(expression(*item, scope));
  }
  if (!over.orderBy.empty()) sql += " ORDER BY " + orderList(over.orderBy, scope);
  return " OVER (" + sql + ")";
}

std::string Binder::orderList(const std::vector<ast::OrderItem>& items, const Scope& scope) {
  std::string sql;
  for (const auto& item : items) {
    sql += (sql.empty() ? "" : ", ") + collated(expression(*item.expr, scope)) +
           (item.descending ? " DESC" : "");
  }
  return sql;
}

}  // namespace kebu::engine
