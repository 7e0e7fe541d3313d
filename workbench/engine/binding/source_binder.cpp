#include "workbench/engine/binding/source_binder.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "common/overloaded.h"
#include "workbench/engine/binding/expression_binder.h"
#include "workbench/engine/sqlite.h"

namespace kebu::engine {

Scope::Member SourceBinder::member(const TablePtr& table, const std::string& alias) {
  Scope::Member member;
  member.alias = alias;
  member.table = table->name;
  member.base = table;
  member.sqliteAlias = context_.nextAlias();
  for (const auto& column : table->columns) {
    member.columns.emplace_back(column.name, Bound{member.sqliteAlias + "." + quoted(column.name),
                                                   column.type, column.nullable, column.name});
  }
  return member;
}

void SourceBinder::add(Scope::Member member, Scope& scope) {
  for (const auto& other : scope.members) {
    if (!equalsIgnoringCase(other.name(), member.name())) continue;
    if (other.alias.empty() && member.alias.empty()) {
      throw SqlError(1013, "The objects \"" + other.name() + "\" and \"" + member.name() +
                               "\" in the FROM clause have the same exposed names. Use correlation "
                               "names to distinguish them.");
    }
    throw SqlError(1011, "The correlation name '" + member.name() +
                             "' is specified multiple times in a FROM clause.");
  }
  scope.members.push_back(std::move(member));
}

std::string SourceBinder::source(const ast::Source& node, Scope& scope) {
  return std::visit(
      Overloaded{[&](const ast::TableRef& reference) { return table(reference, scope); },
                 [&](const ast::FunctionRef& call) { return function(call, scope); },
                 [&](const ast::Join& pair) { return join(pair, scope); },
                 [&](const ast::Derived& inner) {
                   const BoundQuery query = QueryBinder(context_).inner(*inner.query, scope.outer);
                   return derived(query, inner.alias, inner.columns, scope);
                 }},
      node.node);
}

std::string SourceBinder::table(const ast::TableRef& node, Scope& scope) {
  const std::string& alias = node.alias.empty() ? node.name.last() : node.alias;
  const int cte = node.name.parts.size() == 1 ? context_.cteIndex(node.name.last()) : -1;
  if (cte >= 0) {
    const ast::Cte& found = context_.cte(cte);
    const BindingContext::CteQuery names(context_, cte);
    return derived(QueryBinder(context_).inner(*found.query, nullptr), alias, found.columns, scope);
  }
  if (const SystemView* view = context_.catalogue().systemView(node.name)) {
    Scope::Member member;
    member.alias = alias;
    member.sqliteAlias = context_.nextAlias();
    for (const auto& column : view->columns) {
      member.columns.emplace_back(
          column.name, Bound{member.sqliteAlias + "." + column.name, column.type, column.nullable});
    }
    add(std::move(member), scope);
    return "(" + view->query + ") AS " + scope.members.back().sqliteAlias;
  }
  if (const ModulePtr module = context_.catalogue().module(node.name)) {
    if (module->tree.kind != ast::ModuleKind::View) throw unknownObject(node.name);
    const Arguments none;
    const BindingContext::ModuleScope names(context_, *module, none);
    return derived(QueryBinder(context_).inner(*module->tree.query, nullptr), alias,
                   module->tree.columns, scope);
  }
  const TablePtr found = context_.table(node.name);
  add(member(found, node.alias), scope);
  return found->sqliteName() + " AS " + scope.members.back().sqliteAlias;
}

std::string SourceBinder::function(const ast::FunctionRef& node, Scope& scope) {
  const ModulePtr module = tableFunction(node);
  static const Scope nothing;
  const Arguments values =
      arguments(node, *module, scope.outer != nullptr ? *scope.outer : nothing);
  const BindingContext::ModuleScope names(context_, *module, values);
  const std::string& alias = node.alias.empty() ? node.name.last() : node.alias;
  return derived(QueryBinder(context_).inner(*module->tree.query, nullptr), alias, {}, scope);
}

std::string SourceBinder::derived(const BoundQuery& inner, const std::string& alias,
                                  const std::vector<std::string>& names, Scope& scope) {
  Scope::Member member;
  member.alias = alias;
  member.sqliteAlias = context_.nextAlias();
  if (!names.empty() && names.size() != inner.columns.size()) {
    throw SqlError(
        8158, "'" + alias + "' has more or fewer columns than were specified in the column list.");
  }
  for (std::size_t i = 0; i < inner.columns.size(); ++i) {
    const auto& column = inner.columns[i];
    const std::string& name = names.empty() ? column.name : names[i];
    if (name.empty()) {
      throw SqlError(8155, "No column name was specified for column " + std::to_string(i + 1) +
                               " of '" + alias + "'.");
    }
    const bool isRepeated = std::any_of(
        member.columns.begin(), member.columns.end(),
        [&](const Scope::Column& other) { return equalsIgnoringCase(other.first, name); });
    if (isRepeated) {
      throw SqlError(8156,
                     "The column '" + name + "' was specified multiple times for '" + alias + "'.");
    }
    member.columns.emplace_back(name, Bound{member.sqliteAlias + ".c" + std::to_string(i + 1),
                                            column.type, column.nullable});
  }
  add(std::move(member), scope);
  return "(" + inner.sql + ") AS " + scope.members.back().sqliteAlias;
}

std::string SourceBinder::join(const ast::Join& node, Scope& scope) {
  const auto makeNullable = [&](std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
      for (auto& column : scope.members[i].columns) column.second.nullable = true;
    }
  };
  const std::size_t first = scope.members.size();
  const std::string left = source(*node.left, scope);
  const std::size_t middle = scope.members.size();
  if (node.kind == ast::JoinKind::CrossApply || node.kind == ast::JoinKind::OuterApply)
    return apply(node, left, scope);
  // What is joined in parentheses does not see the tables on the left.
  Scope own;
  own.outer = scope.outer;
  own.findings = scope.findings;
  std::string right = source(*node.right, own);
  for (auto& member : own.members) add(std::move(member), scope);
  if (std::holds_alternative<ast::Join>(node.right->node)) right = "(" + right + ")";
  if (node.kind == ast::JoinKind::Cross) return left + " CROSS JOIN " + right;
  const std::string on = ExpressionBinder(context_).condition(*node.on, scope);
  const bool leftMayMiss = node.kind == ast::JoinKind::Right || node.kind == ast::JoinKind::Full;
  const bool rightMayMiss = node.kind == ast::JoinKind::Left || node.kind == ast::JoinKind::Full;
  if (leftMayMiss) makeNullable(first, middle);
  if (rightMayMiss) makeNullable(middle, scope.members.size());
  const char* keyword = leftMayMiss && rightMayMiss ? " FULL JOIN "
                        : leftMayMiss               ? " RIGHT JOIN "
                        : rightMayMiss              ? " LEFT JOIN "
                                                    : " JOIN ";
  return left + keyword + right + " ON " + on;
}

ModulePtr SourceBinder::tableFunction(const ast::FunctionRef& node) const {
  ModulePtr module = context_.catalogue().module(node.name);
  if (!module || module->tree.kind != ast::ModuleKind::TableFunction)
    throw unknownObject(node.name);
  return module;
}

Arguments SourceBinder::arguments(const ast::FunctionRef& node, const Module& module,
                                  const Scope& scope) {
  const auto& parameters = module.tree.parameters;
  if (node.args.size() > parameters.size()) {
    throw SqlError(
        8144, "Procedure or function " + node.name.last() + " has too many arguments specified.");
  }
  Arguments values;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const ast::ExprPtr& value = i < node.args.size() ? node.args[i] : parameters[i].defaultValue;
    if (!value) {
      throw SqlError(
          313, "An insufficient number of arguments were supplied for the procedure or function " +
                   node.name.last() + ".");
    }
    values.emplace(toUpperAscii(parameters[i].name),
                   cast(ExpressionBinder(context_).value(*value, scope), parameters[i].type));
  }
  return values;
}

// SQLite has no lateral joins. The body of an APPLY is therefore joined in its
// parts: its sources with its WHERE as the join's condition.
std::string SourceBinder::apply(const ast::Join& node, const std::string& left, Scope& scope) {
  const bool outerJoin = node.kind == ast::JoinKind::OuterApply;
  if (const auto* inner = std::get_if<ast::Derived>(&node.right->node)) {
    return applyBody(*inner->query, inner->alias, inner->columns, outerJoin, left, scope, &scope);
  }
  const auto* function = std::get_if<ast::FunctionRef>(&node.right->node);
  if (function == nullptr)
    throw SqlError(102, "APPLY of something that is neither a query nor a function is not known.");
  const ModulePtr module = tableFunction(*function);
  const Arguments values = arguments(*function, *module, scope);
  const BindingContext::ModuleScope names(context_, *module, values);
  const std::string& alias = function->alias.empty() ? function->name.last() : function->alias;
  return applyBody(*module->tree.query, alias, {}, outerJoin, left, scope, nullptr);
}

std::string SourceBinder::applyBody(const ast::Query& body, const std::string& alias,
                                    const std::vector<std::string>& names, bool outerJoin,
                                    const std::string& left, Scope& scope, const Scope* visible) {
  const auto* node = std::get_if<ast::Select>(&body.body);
  const auto unknown = [&] {
    return SqlError(102, "APPLY of a query of this form ('" + alias + "') is not known.");
  };
  if (node == nullptr || !node->from || node->distinct || !node->groupBy.empty() || node->having ||
      !body.ctes.empty())
    throw unknown();
  SelectFindings findings;
  Scope inner;
  inner.outer = visible;
  inner.findings = &findings;
  std::string from = source(*node->from, inner);
  auto columns = QueryBinder(context_).items(*node, inner);
  if (findings.aggregated) throw unknown();
  std::string on = node->where ? ExpressionBinder(context_).condition(*node->where, inner) : "1";
  if (node->top) {
    // The first rows only: of one table they can be named by their ids.
    const BoundQuery first = QueryBinder(context_).query(body, visible, true);
    if (!first.base || inner.members.size() != 1) throw unknown();
    on = inner.members[0].sqliteAlias + ".rowid IN (SELECT kb_row FROM (" + first.sql + "))";
  }
  if (inner.members.size() > 1) from = "(" + from + ")";

  Scope::Member member;
  member.alias = alias;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    auto& [name, bound] = columns[i];
    if (!names.empty() && i < names.size()) name = names[i];
    if (outerJoin) {
      // A computed column must be null as well where nothing was joined.
      if (bound.baseColumn.empty() && inner.members[0].base) {
        bound.sql = "(CASE WHEN " + inner.members[0].sqliteAlias + ".rowid IS NOT NULL THEN " +
                    bound.sql + " END)";
      }
      bound.nullable = true;
    }
    bound.baseColumn.clear();
    member.columns.emplace_back(std::move(name), std::move(bound));
  }
  add(std::move(member), scope);
  return left + (outerJoin ? " LEFT JOIN " : " JOIN ") + from + " ON " + on;
}

}  // namespace kebu::engine
