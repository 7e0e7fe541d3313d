// The part of Binder that binds what stands behind FROM.

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/binding/binder.h"
#include "workbench/engine/sqlite.h"

namespace kebu::engine {

SqlError unknownObject(const ast::ObjectName& name) {
  std::string text;
  for (const auto& part : name.parts) text += (text.empty() ? "" : ".") + part;
  return {208, "Invalid object name '" + text + "'.", "42S02"};
}

/// Within a module's text neither the batch's variables nor its common table
/// expressions are known, only the module's own parameters.
class Binder::ModuleFrame {
 public:
  ModuleFrame(Binder& binder, const Arguments* arguments)
      : binder_(binder),
        arguments_(std::exchange(binder.arguments_, arguments)),
        ctes_(std::exchange(binder.ctes_, {})) {}
  ModuleFrame(const ModuleFrame&) = delete;
  ModuleFrame& operator=(const ModuleFrame&) = delete;
  ~ModuleFrame() {
    binder_.arguments_ = arguments_;
    binder_.ctes_ = std::move(ctes_);
  }

 private:
  Binder& binder_;
  const Arguments* arguments_;
  std::map<std::string, ast::Cte> ctes_;
};

TablePtr Binder::table(const ast::ObjectName& name) const {
  TablePtr table = catalogue_.table(name, session_);
  if (!table) throw unknownObject(name);
  return table;
}

Scope::Member Binder::member(const TablePtr& table, const std::string& alias) {
  Scope::Member member;
  member.alias = alias;
  member.table = table->name;
  member.base = table;
  member.sqliteAlias = nextAlias();
  for (const auto& column : table->columns) {
    member.columns.emplace_back(column.name, Bound{member.sqliteAlias + "." + quoted(column.name),
                                                   column.type, column.nullable, column.name});
  }
  return member;
}

std::string Binder::source(const ast::Source& node, Scope& scope) {
  if (const auto* table = std::get_if<ast::TableRef>(&node.node))
    return tableSource(*table, node.at, scope);
  if (const auto* join = std::get_if<ast::Join>(&node.node)) return joinSource(*join, scope);
  if (const auto* inner = std::get_if<ast::Derived>(&node.node)) {
    return derived(query(*inner->query, scope.outer), inner->alias, inner->columns, scope);
  }
  const auto& function = std::get<ast::FunctionRef>(node.node);
  const ModulePtr module = tableFunction(function);
  static const Scope nothing;
  const Arguments values =
      arguments(function, *module, scope.outer != nullptr ? *scope.outer : nothing);
  const ModuleFrame frame(*this, &values);
  const std::string& alias = function.alias.empty() ? function.name.last() : function.alias;
  return derived(query(*module->tree.query, nullptr), alias, {}, scope);
}

std::string Binder::tableSource(const ast::TableRef& node, std::string_view at, Scope& scope) {
  const std::string& alias = node.alias.empty() ? node.name.last() : node.alias;
  if (node.name.parts.size() == 1) {
    const auto cte = ctes_.find(toUpperAscii(node.name.last()));
    if (cte != ctes_.end()) {
      const ast::Cte found = cte->second;
      return derived(query(*found.query, nullptr), alias, found.columns, scope);
    }
  }
  if (const SystemView* view = catalogue_.systemView(node.name)) {
    Scope::Member member;
    member.alias = alias;
    member.sqliteAlias = nextAlias();
    for (const auto& column : view->columns) {
      member.columns.emplace_back(
          column.name, Bound{member.sqliteAlias + "." + column.name, column.type, column.nullable});
    }
    scope.members.push_back(std::move(member));
    return "(" + view->query + ") AS " + scope.members.back().sqliteAlias;
  }
  if (const ModulePtr module = catalogue_.module(node.name)) {
    if (module->tree.kind != ast::ModuleKind::View) throw unknownObject(node.name);
    const Arguments none;
    const ModuleFrame frame(*this, &none);
    return derived(query(*module->tree.query, nullptr), alias, module->tree.columns, scope);
  }
  static_cast<void>(at);
  const TablePtr found = table(node.name);
  scope.members.push_back(member(found, node.alias));
  return found->sqliteName() + " AS " + scope.members.back().sqliteAlias;
}

std::string Binder::derived(const BoundQuery& inner, const std::string& alias,
                            const std::vector<std::string>& names, Scope& scope) {
  Scope::Member member;
  member.alias = alias;
  member.sqliteAlias = nextAlias();
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
    member.columns.emplace_back(name, Bound{member.sqliteAlias + ".c" + std::to_string(i + 1),
                                            column.type, column.nullable});
  }
  scope.members.push_back(std::move(member));
  return "(" + inner.sql + ") AS " + scope.members.back().sqliteAlias;
}

std::string Binder::joinSource(const ast::Join& join, Scope& scope) {
  const auto makeNullable = [&](std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
      for (auto& column : scope.members[i].columns) column.second.nullable = true;
    }
  };
  const std::size_t first = scope.members.size();
  const std::string left = source(*join.left, scope);
  const std::size_t middle = scope.members.size();
  if (join.kind == ast::JoinKind::CrossApply || join.kind == ast::JoinKind::OuterApply)
    return apply(join, left, scope);
  std::string right = source(*join.right, scope);
  if (std::holds_alternative<ast::Join>(join.right->node)) right = "(" + right + ")";
  if (join.kind == ast::JoinKind::Cross) return left + " CROSS JOIN " + right;
  const std::string on = condition(*join.on, scope);
  const bool leftMayMiss = join.kind == ast::JoinKind::Right || join.kind == ast::JoinKind::Full;
  const bool rightMayMiss = join.kind == ast::JoinKind::Left || join.kind == ast::JoinKind::Full;
  if (leftMayMiss) makeNullable(first, middle);
  if (rightMayMiss) makeNullable(middle, scope.members.size());
  const char* keyword = leftMayMiss && rightMayMiss ? " FULL JOIN "
                        : leftMayMiss               ? " RIGHT JOIN "
                        : rightMayMiss              ? " LEFT JOIN "
                                                    : " JOIN ";
  return left + keyword + right + " ON " + on;
}

ModulePtr Binder::tableFunction(const ast::FunctionRef& node) const {
  ModulePtr module = catalogue_.module(node.name);
  if (!module || module->tree.kind != ast::ModuleKind::TableFunction)
    throw unknownObject(node.name);
  return module;
}

Binder::Arguments Binder::arguments(const ast::FunctionRef& node, const Module& module,
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
                   cast(expression(*value, scope), parameters[i].type));
  }
  return values;
}

// SQLite has no lateral joins. The body of an APPLY is therefore joined in its
// parts: its sources with its WHERE as the join's condition.
std::string Binder::apply(const ast::Join& join, const std::string& left, Scope& scope) {
  const bool outerJoin = join.kind == ast::JoinKind::OuterApply;
  if (const auto* inner = std::get_if<ast::Derived>(&join.right->node)) {
    return applyBody(*inner->query, inner->alias, inner->columns, outerJoin, left, scope, &scope);
  }
  const auto* function = std::get_if<ast::FunctionRef>(&join.right->node);
  if (function == nullptr)
    throw SqlError(102, "APPLY of something that is neither a query nor a function is not known.");
  const ModulePtr module = tableFunction(*function);
  const Arguments values = arguments(*function, *module, scope);
  const ModuleFrame frame(*this, &values);
  const std::string& alias = function->alias.empty() ? function->name.last() : function->alias;
  return applyBody(*module->tree.query, alias, {}, outerJoin, left, scope, nullptr);
}

std::string Binder::applyBody(const ast::Query& body, const std::string& alias,
                              const std::vector<std::string>& names, bool outerJoin,
                              const std::string& left, Scope& scope, const Scope* visible) {
  const auto* node = std::get_if<ast::Select>(&body.body);
  const auto unknown = [&] {
    return SqlError(102, "APPLY of a query of this form ('" + alias + "') is not known.");
  };
  if (node == nullptr || !node->from || node->distinct || !node->groupBy.empty() || node->having ||
      !body.ctes.empty())
    throw unknown();
  const bool outerSaw = std::exchange(sawAggregate_, false);
  Scope inner;
  inner.outer = visible;
  std::string from = source(*node->from, inner);
  auto columns = items(*node, inner);
  const bool aggregated = std::exchange(sawAggregate_, outerSaw);
  if (aggregated) throw unknown();
  std::string on = node->where ? condition(*node->where, inner) : "1";
  if (node->top) {
    // The first rows only: of one table they can be named by their ids.
    const BoundQuery first = query(body, visible, true);
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
  scope.members.push_back(std::move(member));
  return left + (outerJoin ? " LEFT JOIN " : " JOIN ") + from + " ON " + on;
}

}  // namespace kebu::engine
