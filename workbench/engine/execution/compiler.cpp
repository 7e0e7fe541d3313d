#include "workbench/engine/execution/compiler.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/binding/expression_binder.h"
#include "workbench/engine/binding/source_binder.h"
#include "workbench/engine/sqlite.h"
#include "workbench/engine/syntax/parser.h"

namespace kebu::engine {
namespace {

SqlError identityError(const Table& table, bool update) {
  if (update) {
    return {8102, "Cannot update identity column '" +
                      table.columns[static_cast<std::size_t>(table.identity)].name + "'."};
  }
  return {544, "Cannot insert explicit value for identity column in table '" + table.name +
                   "' when IDENTITY_INSERT is set to OFF."};
}

int requireColumn(const Table& table, const std::string& name) {
  const int index = table.indexOf(name);
  if (index < 0) throw unknownColumn(name);
  return index;
}

template <class Iterator>
void checkNamedOnce(const std::string& name, Iterator first, Iterator last) {
  const bool known = std::any_of(
      first, last, [&](const std::string& other) { return equalsIgnoringCase(other, name); });
  if (!known) return;
  throw SqlError(264, "The column name '" + name +
                          "' is specified more than once in the SET clause or column list of an "
                          "INSERT. A column cannot be assigned more than one value in the same "
                          "clause.");
}

SqlError countError(bool fewer) {
  return fewer ? SqlError(109,
                          "There are more columns in the INSERT statement than values specified in "
                          "the VALUES clause.")
               : SqlError(110,
                          "There are fewer columns in the INSERT statement than values specified "
                          "in the VALUES clause.");
}

/// The rows of an INSERT's VALUES. Several rows are a union: every column has one type. A null
/// stands for DEFAULT.
std::vector<std::vector<std::optional<Bound>>> boundRows(BindingContext& context,
                                                         const ast::Values& values,
                                                         std::size_t width) {
  constexpr std::size_t mostRows = 1000;
  if (values.rows.size() > mostRows) {
    throw SqlError(
        10738,
        "The number of row value expressions in the INSERT statement exceeds the maximum "
        "allowed number of 1000 row values.");
  }
  const Scope nothing;
  std::vector<SqlType> types(width);
  std::vector<std::vector<std::optional<Bound>>> rows;
  for (const auto& row : values.rows) {
    if (row.size() != width) throw countError(row.size() < width);
    auto& bound = rows.emplace_back(width);
    for (std::size_t i = 0; i < width; ++i) {
      if (!row[i]) continue;
      bound[i] = ExpressionBinder(context).value(*row[i], nothing);
      types[i] = unify(types[i], bound[i]->type);
    }
  }
  if (rows.size() == 1) return rows;
  for (auto& row : rows) {
    for (std::size_t i = 0; i < width; ++i) {
      if (row[i]) row[i] = cast(*row[i], types[i]);
    }
  }
  return rows;
}

/// The source in FROM that is the target of the UPDATE or DELETE; null when there is none.
const Scope::Member* targetIn(const Scope& scope, const ast::ObjectName& name,
                              const TablePtr& table) {
  for (const auto& member : scope.members) {
    if (member.base && equalsIgnoringCase(member.alias, name.last())) return &member;
  }
  for (const auto& member : scope.members) {
    if (table && member.base == table) return &member;
  }
  return nullptr;
}

/// " WHERE …", or "" without a condition.
std::string boundWhere(BindingContext& context, const ast::ExprPtr& condition, const Scope& scope) {
  return condition ? " WHERE " + ExpressionBinder(context).condition(*condition, scope) : "";
}

}  // namespace

bool Compiled::busy() const {
  return std::any_of(steps.begin(), steps.end(),
                     [](const PreparedStatement& step) { return step.busy(); });
}

InsertTargets::InsertTargets(const Table& table, const std::vector<std::string>& names,
                             bool identityInsert) {
  for (auto name = names.begin(); name != names.end(); ++name)
    checkNamedOnce(*name, names.begin(), name);
  const auto count = static_cast<int>(table.columns.size());
  for (const auto& name : names) columns.push_back(requireColumn(table, name));
  if (names.empty()) {
    for (int i = 0; i < count; ++i) {
      if (i != table.identity || identityInsert) columns.push_back(i);
    }
  }
  const auto named = [&](int column) {
    return std::find(columns.begin(), columns.end(), column) != columns.end();
  };
  if (table.identity >= 0 && named(table.identity) && !identityInsert)
    throw identityError(table, false);
  for (int i = 0; i < count; ++i) {
    if (!named(i) && !table.columns[static_cast<std::size_t>(i)].defaultText.empty())
      defaulted.push_back(i);
  }
  for (const auto& group : {columns, defaulted}) {
    for (const int column : group) {
      list +=
          (list.empty() ? "" : ", ") + quoted(table.columns[static_cast<std::size_t>(column)].name);
    }
  }
}

std::string boundDefault(BindingContext& context, const Table& table, int index) {
  const TableColumn& column = table.columns[static_cast<std::size_t>(index)];
  if (column.defaultText.empty()) return "NULL";
  return stored(ExpressionBinder(context).value(*parseExpression(column.defaultText), {}), column,
                table.name);
}

std::vector<BoundAssignment> boundAssignments(BindingContext& context, const Table& table,
                                              const std::vector<ast::Assignment>& set,
                                              const Scope& scope) {
  std::vector<BoundAssignment> bound;
  std::vector<std::string> assigned;
  for (const auto& assignment : set) {
    checkNamedOnce(assignment.column, assigned.begin(), assigned.end());
    assigned.push_back(assignment.column);
    const int index = requireColumn(table, assignment.column);
    if (index == table.identity) throw identityError(table, true);
    const TableColumn& column = table.columns[static_cast<std::size_t>(index)];
    bound.push_back({quoted(column.name), assignment.value ? stored(ExpressionBinder(context).value(
                                                                        *assignment.value, scope),
                                                                    column, table.name)
                                                           : boundDefault(context, table, index)});
  }
  return bound;
}

std::string assignmentList(const std::vector<BoundAssignment>& assignments) {
  std::string sql;
  for (const auto& [column, value] : assignments) {
    sql += (sql.empty() ? "" : ", ") + column + " = " + value;
  }
  return sql;
}

Compiled Compiler::start() const {
  Compiled compiled;
  compiled.version = database_.catalogue().version();
  return compiled;
}

void Compiler::add(Compiled& compiled, const std::string& sql,
                   const BindingContext& context) const {
  if (purpose_ == Purpose::Run) compiled.steps.emplace_back(database_, sql, context.slots());
}

Compiled Compiler::query(const ast::Query& node) {
  Compiled compiled = start();
  BindingContext context = this->context();
  BoundQuery bound = QueryBinder(context).query(node, nullptr);
  compiled.columns = std::move(bound.columns);
  compiled.base = bound.base;
  add(compiled, bound.sql, context);
  return compiled;
}

Compiled Compiler::value(const ast::Expr& node, const SqlType* type) {
  Compiled compiled = start();
  BindingContext context = this->context();
  Bound bound = ExpressionBinder(context).value(node, {});
  if (type != nullptr) bound = cast(bound, *type);
  compiled.columns.push_back({"", bound.type, true, ""});
  add(compiled, "SELECT " + bound.sql, context);
  return compiled;
}

Compiled Compiler::condition(const ast::Expr& node) {
  Compiled compiled = start();
  BindingContext context = this->context();
  const std::string sql = "SELECT ifnull(" + ExpressionBinder(context).condition(node, {}) + ", 0)";
  compiled.columns.push_back({"", SqlType::integer(), false, ""});
  add(compiled, sql, context);
  return compiled;
}

Compiled Compiler::insert(const ast::Insert& node, bool identityInsert) {
  Compiled compiled = start();
  BindingContext context = this->context();
  const TablePtr table = context.table(node.table);
  compiled.base = table;
  const std::string into = "INSERT INTO " + table->sqliteName();
  if (!node.query) {
    const InsertTargets targets(*table, {}, false);
    std::string values;
    for (const int column : targets.columns)
      values += (values.empty() ? "" : ", ") + boundDefault(context, *table, column);
    add(compiled, into + " (" + targets.list + ") VALUES (" + values + ")", context);
    return compiled;
  }
  const InsertTargets targets(*table, node.columns, identityInsert);
  const auto column = [&](std::size_t i) -> const TableColumn& {
    return table->columns[static_cast<std::size_t>(targets.columns[i])];
  };
  std::string defaults;
  for (const int defaulted : targets.defaulted)
    defaults += ", " + boundDefault(context, *table, defaulted);

  std::string rows;
  if (const auto* values = std::get_if<ast::Values>(&node.query->body)) {
    const auto bound = boundRows(context, *values, targets.columns.size());
    for (const auto& row : bound) {
      rows += rows.empty() ? " VALUES (" : ", (";
      for (std::size_t i = 0; i < row.size(); ++i) {
        rows += i > 0 ? ", " : "";
        rows += row[i] ? stored(*row[i], column(i), table->name)
                       : boundDefault(context, *table, targets.columns[i]);
      }
      rows += defaults + ")";
    }
  } else {
    const BoundQuery bound = QueryBinder(context).query(*node.query, nullptr);
    if (bound.columns.size() != targets.columns.size()) {
      throw bound.columns.size() < targets.columns.size()
          ? SqlError(120,
                     "The select list for the INSERT statement contains fewer items than the "
                     "insert list.")
          : SqlError(121,
                     "The select list for the INSERT statement contains more items than the insert "
                     "list.");
    }
    std::string list;
    bool asItIs = defaults.empty();
    for (std::size_t i = 0; i < bound.columns.size(); ++i) {
      const std::string name = "c" + std::to_string(i + 1);
      const std::string value = stored({name, bound.columns[i].type}, column(i), table->name);
      asItIs = asItIs && value == name;
      list += (i > 0 ? ", " : " SELECT ") + value;
    }
    rows = asItIs ? " " + bound.sql : list + defaults + " FROM (" + bound.sql + ")";
  }
  add(compiled, into + " (" + targets.list + ")" + rows, context);
  return compiled;
}

Compiled Compiler::update(const ast::Update& node) {
  Compiled compiled = start();
  BindingContext context = this->context();
  Scope scope;
  if (!node.from) {
    const TablePtr table = context.table(node.table);
    compiled.base = table;
    scope.members.push_back(SourceBinder(context).member(table, {}));
    const std::string set = assignmentList(boundAssignments(context, *table, node.set, scope));
    const std::string where = boundWhere(context, node.where, scope);
    add(compiled,
        "UPDATE " + table->sqliteName() + " AS " + scope.members[0].sqliteAlias + " SET " + set +
            where,
        context);
    return compiled;
  }
  // A query of the whole FROM clause gives the rows' ids and their new values.
  std::string from = SourceBinder(context).source(*node.from, scope);
  const TablePtr named = database_.catalogue().table(node.table, session_);
  const Scope::Member* target = targetIn(scope, node.table, named);
  if (target == nullptr) {
    const TablePtr table = context.table(node.table);
    Scope::Member member = SourceBinder(context).member(table, {});
    from = table->sqliteName() + " AS " + member.sqliteAlias + ", " + from;
    scope.members.push_back(std::move(member));
    target = &scope.members.back();
  }
  compiled.base = target->base;
  const Table& table = *target->base;
  std::string list = target->sqliteAlias + ".rowid AS kb_row";
  auto assignments = boundAssignments(context, table, node.set, scope);
  for (std::size_t i = 0; i < assignments.size(); ++i) {
    const std::string name = "v" + std::to_string(i + 1);
    list += ", " + std::exchange(assignments[i].value, "kb_new." + name) + " AS " + name;
  }
  const std::string where = boundWhere(context, node.where, scope);
  add(compiled,
      "UPDATE " + table.sqliteName() + " AS kb_old SET " + assignmentList(assignments) +
          " FROM (SELECT " + list + " FROM " + from + where +
          ") AS kb_new WHERE kb_old.rowid = kb_new.kb_row",
      context);
  return compiled;
}

Compiled Compiler::remove(const ast::Delete& node) {
  Compiled compiled = start();
  BindingContext context = this->context();
  Scope scope;
  if (!node.from) {
    const TablePtr table = context.table(node.table);
    scope.members.push_back(SourceBinder(context).member(table, {}));
    const std::string where = boundWhere(context, node.where, scope);
    add(compiled,
        "DELETE FROM " + table->sqliteName() + " AS " + scope.members[0].sqliteAlias + where,
        context);
    return compiled;
  }
  const std::string from = SourceBinder(context).source(*node.from, scope);
  const Scope::Member* target =
      targetIn(scope, node.table, database_.catalogue().table(node.table, session_));
  if (target == nullptr) throw unknownObject(node.table);
  const std::string where = boundWhere(context, node.where, scope);
  add(compiled,
      "DELETE FROM " + target->base->sqliteName() + " WHERE rowid IN (SELECT " +
          target->sqliteAlias + ".rowid FROM " + from + where + ")",
      context);
  return compiled;
}

std::int64_t Compiler::selectInto(const ast::Query& node, const Frame& frame) {
  BindingContext context = this->context();
  const BoundQuery bound = QueryBinder(context).query(node, nullptr);
  const ast::ObjectName& name = *std::get<ast::Select>(node.body).into;
  if (database_.catalogue().table(name, session_)) {
    throw SqlError(2714, "There is already an object named '" + name.last() + "' in the database.",
                   "42S01");
  }
  ast::CreateTable definition;
  definition.name = name;
  for (const auto& column : bound.columns) {
    if (column.name.empty()) {
      throw SqlError(1038,
                     "An object or column name is missing or empty. For SELECT INTO statements, "
                     "verify each column has a name.");
    }
    ast::ColumnDef def;
    def.name = column.name;
    def.type = column.type.kind == TypeKind::Null ? SqlType::integer() : column.type;
    if (def.type.kind == TypeKind::Int) def.type = SqlType::integer();
    if (def.type.isText() && def.type.size == 0) def.type.size = 1;
    def.nullable = column.nullable;
    definition.columns.push_back(std::move(def));
  }
  auto table = Table::from(definition);
  table->makeOwnedBy(session_);
  Transaction transaction(database_);
  database_.createTable(table);
  try {
    PreparedStatement fill(database_, "INSERT INTO " + table->sqliteName() + " " + bound.sql,
                           context.slots());
    const std::int64_t rows = fill.run(frame);
    transaction.commit();
    return rows;
  } catch (...) {
    database_.catalogue().remove(*table);  // the transaction undoes the table itself
    throw;
  }
}

}  // namespace kebu::engine
