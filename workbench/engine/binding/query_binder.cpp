// The part of Binder that binds queries.

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/binding/binder.h"

namespace kebu::engine {
namespace {

std::string columnName(std::size_t index) {
  return "c" + std::to_string(index + 1);
}

/// The name that a column has without an alias.
std::string impliedName(const ast::Expr& expr) {
  const auto* column = std::get_if<ast::Column>(&expr.node);
  return column != nullptr ? column->parts.back() : std::string();
}

}  // namespace

BoundQuery Binder::query(const ast::Query& node, const Scope* outer, bool withRow) {
  const auto outerCtes = ctes_;
  for (const auto& cte : node.ctes) ctes_[toUpperAscii(cte.name)] = cte;
  BoundQuery result;
  if (const auto* plain = std::get_if<ast::Select>(&node.body)) {
    result = select(*plain, node, outer, withRow);
  } else {
    if (const auto* rows = std::get_if<ast::Values>(&node.body)) {
      result = values(*rows, outer);
    } else {
      result = setOperation(std::get<ast::SetOp>(node.body), outer);
    }
    if (!node.orderBy.empty()) {
      result.sql = "SELECT * FROM (" + result.sql + ")" + orderBy(node, result.columns, {});
      result.plain = false;
    }
  }
  ctes_ = outerCtes;
  return result;
}

BoundQuery Binder::select(const ast::Select& node, const ast::Query& whole, const Scope* outer,
                          bool withRow) {
  const bool outerSaw = std::exchange(sawAggregate_, false);
  Scope scope;
  scope.outer = outer;
  std::string tail;
  if (node.from) tail += " FROM " + source(*node.from, scope);
  if (node.where) tail += " WHERE " + condition(*node.where, scope);
  std::string groups;
  for (const auto& group : node.groupBy) {
    groups += (groups.empty() ? " GROUP BY " : ", ") + collated(expression(*group, scope));
  }
  tail += groups;
  if (node.having) tail += " HAVING " + condition(*node.having, scope);

  BoundQuery result;
  std::string list;
  for (auto& [name, bound] : items(node, scope)) {
    list +=
        (list.empty() ? "" : ", ") + collated(bound) + " AS " + columnName(result.columns.size());
    result.columns.push_back({name, bound.type, bound.nullable, bound.baseColumn});
  }
  const bool aggregated = sawAggregate_ || !node.groupBy.empty() || node.having;
  if (withRow && !aggregated && !node.distinct && scope.members.size() == 1 &&
      scope.members[0].base) {
    result.base = scope.members[0].base;
    list += ", " + scope.members[0].sqliteAlias + ".rowid AS kb_row";
  }
  result.sql = std::string("SELECT ") + (node.distinct ? "DISTINCT " : "") + list + tail;
  result.plain = whole.orderBy.empty() && !node.top;
  if (!whole.orderBy.empty()) result.sql += orderBy(whole, result.columns, scope);
  if (node.top)
    result.sql +=
        " LIMIT " + cast(expression(*node.top, scope), SqlType::integer(TypeKind::BigInt)).sql;
  sawAggregate_ = outerSaw;
  return result;
}

std::vector<std::pair<std::string, Bound>> Binder::items(const ast::Select& node,
                                                         const Scope& scope) {
  std::vector<std::pair<std::string, Bound>> result;
  for (const auto& item : node.items) {
    if (item.expr) {
      std::string name = item.alias.empty() ? impliedName(*item.expr) : item.alias;
      result.emplace_back(std::move(name), expression(*item.expr, scope));
      continue;
    }
    bool found = false;
    for (const auto& member : scope.members) {
      const std::string& known = member.alias.empty() ? member.table : member.alias;
      if (!item.starOf.empty() && !equalsIgnoringCase(item.starOf, known)) continue;
      found = true;
      result.insert(result.end(), member.columns.begin(), member.columns.end());
    }
    if (!found) {
      throw SqlError(107,
                     "The column prefix '" + item.starOf +
                         "' does not match with a table name or alias name used in the query.");
    }
  }
  return result;
}

std::string Binder::orderBy(const ast::Query& node, const std::vector<BoundQuery::Column>& columns,
                            const Scope& scope) {
  std::string sql;
  for (const auto& item : node.orderBy) {
    // A number or a column's name stands for the output column.
    std::string key;
    if (const auto* literal = std::get_if<ast::Literal>(&item.expr->node);
        literal && literal->slot < 0) {
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
    if (key.empty()) key = collated(expression(*item.expr, scope));
    sql += (sql.empty() ? " ORDER BY " : ", ") + key + (item.descending ? " DESC" : "");
  }
  return sql;
}

BoundQuery Binder::values(const ast::Values& node, const Scope* outer) {
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
      bound.push_back(expression(*row[i], scope));
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

BoundQuery Binder::setOperation(const ast::SetOp& node, const Scope* outer) {
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
      std::holds_alternative<ast::SetOp>(node.left->body) && node.left->orderBy.empty();
  const auto asOperand = [&](BoundQuery operand, bool mayStand) {
    operand = converted(std::move(operand), types);
    return operand.plain || mayStand ? operand.sql : "SELECT * FROM (" + operand.sql + ")";
  };
  BoundQuery result;
  const bool leftStands = chained && std::equal(types.begin(), types.end(), left.columns.begin(),
                                                [](const SqlType& type, const auto& column) {
                                                  return sameStorage(column.type, type);
                                                });
  result.sql = asOperand(std::move(left), leftStands) + " " + toUpperAscii(node.op) + " " +
               asOperand(std::move(right), false);
  result.columns = std::move(columns);
  return result;
}

BoundQuery Binder::converted(BoundQuery query, const std::vector<SqlType>& types) {
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
