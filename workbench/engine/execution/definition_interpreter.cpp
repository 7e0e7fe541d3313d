#include "workbench/engine/execution/definition_interpreter.h"

#include <array>
#include <string>
#include <utility>

#include "workbench/engine/execution/session.h"
#include "workbench/engine/syntax/parser.h"

namespace kebu::engine {
namespace {

SqlError exists(const std::string& name) {
  return {2714, "There is already an object named '" + name + "' in the database.", "42S01"};
}

/// As the error of a failing DROP names it.
std::string nameOf(ast::ObjectKind kind) {
  static constexpr std::array<const char*, 5> names{"TABLE", "VIEW", "PROCEDURE", "FUNCTION",
                                                    "INDEX"};
  return names.at(static_cast<std::size_t>(kind));
}

}  // namespace

void DefinitionInterpreter::run(const ast::CreateTable& create) {
  Database& database = execution_.database();
  const int session = execution_.session().id();
  if (database.catalogue().table(create.name, session) ||
      database.catalogue().module(create.name)) {
    throw exists(create.name.last());
  }
  auto table = Table::from(create);
  table->makeOwnedBy(session);
  database.createTable(std::move(table));
}

void DefinitionInterpreter::run(const ast::CreateModule& create) {
  Database& database = execution_.database();
  const Catalogue& catalogue = database.catalogue();
  const int session = execution_.session().id();
  const ModulePtr existing = catalogue.module(create.name);
  if (catalogue.table(create.name, session) || (existing && !create.alter))
    throw exists(create.name.last());
  if (create.alter && !existing) throw unknownObject(create.name);
  auto module = std::make_shared<Module>();
  module->text = std::string(create.text);
  module->tree = parseModule(module->text);
  if (module->tree.kind == ast::ModuleKind::View) {
    // The objects of a view must exist when it is made, those of a procedure when it runs.
    const Variables none;
    BindingContext context(catalogue, session, none);
    QueryBinder(context).inner(*module->tree.query, nullptr);
  }
  database.createModule(module);
}

void DefinitionInterpreter::run(const ast::CreateIndex& create) {
  Database& database = execution_.database();
  const TablePtr table = database.catalogue().table(create.table, execution_.session().id());
  if (!table) throw unknownObject(create.table);
  std::vector<IndexColumn> indexed;
  for (const auto& item : create.columns) {
    const auto* column = std::get_if<ast::Column>(&item.expr->node);
    const int index = column == nullptr ? -1 : table->indexOf(column->parts.back());
    if (index < 0) throw SqlError(1911, "Column name does not exist in the target table or view.");
    indexed.push_back({index, item.descending});
  }
  Transaction transaction(database);
  try {
    for (const auto& statement : table->sqliteIndex(create.name, create.unique, indexed))
      database.run(statement);
  } catch (const SqlError& error) {
    if (error.nativeError() != 2601 && error.nativeError() != 2627) throw;
    throw SqlError(1505,
                   "The CREATE UNIQUE INDEX statement terminated because a duplicate key was found "
                   "for the object name 'dbo." +
                       table->name + "' and the index name '" + create.name + "'.",
                   "23000");
  }
  transaction.commit();
}

void DefinitionInterpreter::run(const ast::Drop& drop) {
  for (const auto& name : drop.names) this->drop(drop.kind, name, drop.ifExists);
}

void DefinitionInterpreter::drop(ast::ObjectKind kind, const ast::ObjectName& name, bool ifExists) {
  if (kind == ast::ObjectKind::Index) throw SqlError(102, "DROP INDEX is not known.");
  Database& database = execution_.database();
  const Catalogue& catalogue = database.catalogue();
  if (kind == ast::ObjectKind::Table) {
    if (const TablePtr table = catalogue.table(name, execution_.session().id()))
      return database.dropTable(*table);
  } else if (const ModulePtr module = catalogue.module(name)) {
    return database.dropModule(*module);
  }
  if (ifExists) return;
  throw SqlError(3701,
                 "Cannot drop the " + nameOf(kind) + " '" + name.last() +
                     "', because it does not exist or you do not have permission.",
                 "42S02");
}

}  // namespace kebu::engine
