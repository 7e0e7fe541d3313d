#include "workbench/engine/binding/query_binder.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/binding/expression_binder.h"
#include "workbench/engine/binding/source_binder.h"

namespace kebu::engine {
namespace {

/// The name that a column has without an alias.
std::string impliedName(const ast::Expr& expr) {
  const auto* column = std::get_if<ast::Column>(&expr.node);
  return column != nullptr ? column->parts.back() : std::string();
}

/// The error for the first column that is not grouped.
SqlError ungrouped(const SelectFindings& findings, std::int32_t number, const std::string& clause) {
  return {number, "Column '" + findings.ungrouped.front() + "' is invalid in the " + clause +
                      " because it is not contained in either an aggregate function or the GROUP "
                      "BY clause."};
}

}  // namespace

std::string columnName(std::size_t index) {
  return "c" + std::to_string(index + 1);
}

BoundQuery QueryBinder::query(const ast::Query& node, const Scope* outer, bool withRow) {
  const BindingContext::CteScope ctes(context_, node.ctes);
  if (const auto* plain = std::get_if<ast::Select>(&node.body))
    return select(*plain, node, outer, withRow);
  const auto* const rows = std::get_if<ast::Values>(&node.body);
  BoundQuery result = rows != nullptr ? values(*rows, outer)
                                      : setOperation(std::get<ast::SetOperation>(node.body), outer);
  if (!node.orderBy.empty()) {
    result.sql =
        "SELECT * FROM (" + result.sql + ")" + orderBy(node, result.columns, {}, false, {});
    result.plain = false;
  }
  return result;
}

BoundQuery QueryBinder::inner(const ast::Query& node, const Scope* outer) {
  const auto* const select = std::get_if<ast::Select>(&node.body);
  if (!node.orderBy.empty() && (select == nullptr || !select->top)) {
    throw SqlError(
        1033,
        "The ORDER BY clause is invalid in views, inline functions, derived tables, "
        "subqueries, and common table expressions, unless TOP, OFFSET or FOR XML is also "
        "specified.");
  }
  return query(node, outer);
}

BoundQuery QueryBinder::select(const ast::Select& node, const ast::Query& whole, const Scope* outer,
                               bool withRow) {
  ExpressionBinder expressions(context_);
  SelectFindings findings;
  Scope scope;
  scope.outer = outer;
  scope.findings = &findings;
  std::string tail;
  using Clause = SelectFindings::Clause;
  findings.clause = Clause::From;
  if (node.from) tail += " FROM " + SourceBinder(context_).source(*node.from, scope);
  findings.clause = Clause::Where;
  if (node.where) tail += " WHERE " + expressions.condition(*node.where, scope);
  findings.clause = Clause::GroupBy;
  std::string groups;
  std::vector<std::string> grouped;
  for (const auto& group : node.groupBy) {
    if (std::holds_alternative<ast::Literal>(group->node)) {
      throw SqlError(164,
                     "Each GROUP BY expression must contain at least one column that is not an "
                     "outer reference.");
    }
    const Bound bound = expressions.value(*group, scope);
    groups += (groups.empty() ? " GROUP BY " : ", ") + collated(bound);
    grouped.push_back(withoutPlaces(bound.sql));
  }
  tail += groups;
  findings.clause = Clause::Rows;
  findings.groups = std::move(grouped);
  findings.ungrouped.clear();
  if (node.having) tail += " HAVING " + expressions.condition(*node.having, scope);
  if (!findings.ungrouped.empty()) throw ungrouped(findings, 8121, "HAVING clause");

  BoundQuery result;
  std::string list;
  const std::vector<Scope::Column> bounds = items(node, scope);
  for (const auto& [name, bound] : bounds) {
    list +=
        (list.empty() ? "" : ", ") + collated(bound) + " AS " + columnName(result.columns.size());
    result.columns.push_back({name, bound.type, bound.nullable, bound.baseColumn});
  }
  const auto isAggregated = [&] {
    return findings.aggregated || !node.groupBy.empty() || node.having;
  };
  if (isAggregated() && !findings.ungrouped.empty()) throw ungrouped(findings, 8120, "select list");
  std::string order;
  if (!whole.orderBy.empty()) {
    const bool wasAggregated = isAggregated();
    const std::vector<std::string> listed = std::exchange(findings.ungrouped, {});
    order = orderBy(whole, result.columns, bounds, node.distinct, scope);
    if (isAggregated() && !findings.ungrouped.empty()) {
      throw ungrouped(findings, 8127, "ORDER BY clause");
    }
    if (isAggregated() && !wasAggregated) {
      // The aggregate that makes all rows one group stands in the order alone, which SQLite
      // refuses.
      findings.ungrouped = listed;
      if (!listed.empty()) throw ungrouped(findings, 8120, "select list");
      tail = " FROM (SELECT count(*)" + tail + ")";
      order.clear();
    }
  }
  const bool aggregated = isAggregated();
  result.singleRow = findings.aggregated && node.groupBy.empty();
  if (!aggregated && !node.distinct && scope.members.size() == 1) {
    result.base = scope.members[0].base;
    if (withRow && result.base) list += ", " + scope.members[0].sqliteAlias + ".rowid AS kb_row";
  }
  result.sql = std::string("SELECT ") + (node.distinct ? "DISTINCT " : "") + list + tail;
  result.plain = whole.orderBy.empty() && !node.top;
  result.sql += order;
  if (node.top) {
    const Bound top = expressions.value(*node.top, scope);
    result.sql += " LIMIT " + cast(top, SqlType::integer(TypeKind::BigInt)).sql;
  }
  return result;
}

std::vector<Scope::Column> QueryBinder::items(const ast::Select& node, const Scope& scope) {
  ExpressionBinder expressions(context_);
  std::vector<Scope::Column> result;
  for (const auto& item : node.items) {
    if (item.expr) {
      std::string name = item.alias.empty() ? impliedName(*item.expr) : item.alias;
      result.emplace_back(std::move(name), expressions.value(*item.expr, scope));
      continue;
    }
    bool found = false;
    for (const auto& member : scope.members) {
      if (!item.starOf.empty() && !equalsIgnoringCase(item.starOf, member.name())) continue;
      found = true;
      for (const auto& column : member.columns) {
        if (scope.findings != nullptr && !scope.findings->isGroup(column.second.sql))
          scope.findings->ungrouped.push_back(member.name() + "." + column.first);
        result.push_back(column);
      }
    }
    if (!found) {
      throw SqlError(107,
                     "The column prefix '" + item.starOf +
                         "' does not match with a table name or alias name used in the query.");
    }
  }
  return result;
}

/// `items`: the bound select list; none for a union, whose order can only name its columns.
std::string QueryBinder::orderBy(const ast::Query& node,
                                 const std::vector<BoundQuery::Column>& columns,
                                 const std::vector<Scope::Column>& items, bool distinct,
                                 const Scope& scope) {
  std::string sql;
  for (const auto& item : node.orderBy) {
    // A number or a column's name stands for the output column.
    std::string key;
    if (const auto* literal = std::get_if<ast::Literal>(&item.expr->node)) {
      if (literal->slot >= 0 || !literal->type.isInteger()) {
        throw SqlError(408, "A constant expression was encountered in the ORDER BY list.");
      }
      const auto place = toInt32(literal->value);
      if (place < 1 || place > static_cast<std::int32_t>(columns.size())) {
        throw SqlError(108, "The ORDER BY position number " + std::to_string(place) +
                                " is out of range of the number of items in the select list.");
      }
      key = std::to_string(place);
    } else if (const auto* column = std::get_if<ast::Column>(&item.expr->node);
               column && column->parts.size() == 1) {
      for (std::size_t i = 0; i < columns.size() && key.empty(); ++i) {
        if (equalsIgnoringCase(columns[i].name, column->parts[0])) key = std::to_string(i + 1);
      }
    }
    if (key.empty()) {
      if (items.empty()) {
        throw SqlError(104,
                       "ORDER BY items must appear in the select list if the statement contains a "
                       "UNION, INTERSECT or EXCEPT operator.");
      }
      const Bound bound = ExpressionBinder(context_).value(*item.expr, scope);
      const bool selected = std::any_of(items.begin(), items.end(), [&](const Scope::Column& one) {
        return withoutPlaces(one.second.sql) == withoutPlaces(bound.sql);
      });
      if (distinct && !selected) {
        throw SqlError(145,
                       "ORDER BY items must appear in the select list if SELECT DISTINCT is "
                       "specified.");
      }
      key = collated(bound);
    }
    sql += (sql.empty() ? " ORDER BY " : ", ") + key + (item.descending ? " DESC" : "");
  }
  return sql;
}

BoundQuery QueryBinder::values(const ast::Values& node, const Scope* outer) {
  ExpressionBinder expressions(context_);
  BoundQuery result;
  Scope scope;
  scope.outer = outer;
  std::vector<std::vector<Bound>> rows;
  for (const auto& row : node.rows) {
    auto& bound = rows.emplace_back();
    if (row.size() != node.rows[0].size()) {
      throw SqlError(
          10709,
          "The number of columns for each row in a table value constructor must be the same.");
    }
    result.columns.resize(row.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (!row[i]) throw SqlError(102, "DEFAULT may stand in the VALUES of an INSERT only.");
      bound.push_back(expressions.value(*row[i], scope));
      result.columns[i].type = unify(result.columns[i].type, bound.back().type);
    }
  }
  for (const auto& row : rows) {
    result.sql += result.sql.empty() ? "SELECT " : " UNION ALL SELECT ";
    for (std::size_t i = 0; i < row.size(); ++i) {
      result.sql += (i > 0 ? ", " : "") + collated(cast(row[i], result.columns[i].type)) + " AS " +
                    columnName(i);
    }
  }
  return result;
}

BoundQuery QueryBinder::setOperation(const ast::SetOperation& node, const Scope* outer) {
  BoundQuery left = query(*node.left, outer);
  BoundQuery right = query(*node.right, outer);
  if (left.columns.size() != right.columns.size()) {
    throw SqlError(205,
                   "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an "
                   "equal number of expressions in their target lists.");
  }
  std::vector<SqlType> types;
  std::vector<BoundQuery::Column> columns = left.columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    types.push_back(unify(left.columns[i].type, right.columns[i].type));
    columns[i].type = types.back();
    columns[i].nullable = left.columns[i].nullable || right.columns[i].nullable;
  }
  const bool chained =
      std::holds_alternative<ast::SetOperation>(node.left->body) && node.left->orderBy.empty();
  const auto asOperand = [&](BoundQuery operand, bool mayStand) {
    operand = convertedTo(types, std::move(operand));
    return operand.plain || mayStand ? operand.sql : "SELECT * FROM (" + operand.sql + ")";
  };
  BoundQuery result;
  const bool leftStands = chained && std::equal(types.begin(), types.end(), left.columns.begin(),
                                                [](const SqlType& type, const auto& column) {
                                                  return sameStorage(column.type, type);
                                                });
  result.sql = asOperand(std::move(left), leftStands) + " " + std::string(symbolOf(node.op)) + " " +
               asOperand(std::move(right), false);
  result.columns = std::move(columns);
  return result;
}

BoundQuery convertedTo(const std::vector<SqlType>& types, BoundQuery query) {
  bool same = true;
  std::string list;
  for (std::size_t i = 0; i < types.size(); ++i) {
    auto& column = query.columns[i];
    const Bound value{columnName(i), column.type, column.nullable};
    same = same && sameStorage(column.type, types[i]);
    list += (i > 0 ? ", " : "") + collated(cast(value, types[i])) + " AS " + columnName(i);
    column.type = types[i];
  }
  if (same) return query;
  query.sql = "SELECT " + list + " FROM (" + query.sql + ")";
  query.plain = true;
  return query;
}

}  // namespace kebu::engine
