#include "workbench/engine/execution/interpreter.h"

#include <utility>

#include "common/convert.h"
#include "workbench/engine/execution/session.h"
#include "workbench/engine/sqlite.h"
#include "workbench/engine/values/cast.h"

namespace kebu::engine {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

SqlError exists(const std::string& name) {
  return {2714, "There is already an object named '" + name + "' in the database.", "42S01"};
}

/// A GUID as a result gives it.
void putInBraces(Value& guid) {
  if (!guid.isNull()) guid = "{" + guid.as<std::string>() + "}";
}

SqlError undeclared(const std::string& name) {
  return {137, "Must declare the scalar variable \"" + name + "\"."};
}

}  // namespace

Variable& Interpreter::variable(const std::string& name) {
  const auto found = frame_.variables.find(name);
  if (found == frame_.variables.end()) throw undeclared(name);
  return found->second;
}

Database& Interpreter::database() const {
  return session_.database();
}

Compiler Interpreter::compiler() {
  return {database(), session_.id(), frame_.variables};
}

template <class Make>
std::shared_ptr<Compiled> Interpreter::compiled(const void* node, Make&& make) {
  const auto found = program_.compiled.find(node);
  const bool current = found != program_.compiled.end() &&
                       found->second->version == database().catalogue().version();
  if (current && !found->second->busy()) return found->second;
  auto fresh = std::make_shared<Compiled>(make(compiler()));
  if (!current) program_.compiled[node] = fresh;
  return fresh;
}

void Interpreter::run(const std::vector<ast::StatementPtr>& statements) {
  // A declaration counts from the start, wherever it stands.
  for (const auto& node : statements) declareIn(*node);
  block(statements);
}

void Interpreter::declareIn(const ast::Statement& node) {
  std::visit(Overloaded{[&](const ast::Declare& declare) {
                          for (const auto& variable : declare.variables) {
                            const Variable declared{variable.type, Null{}};
                            if (!frame_.variables.emplace(variable.name, declared).second) {
                              throw SqlError(134, "The variable name '" + variable.name +
                                                      "' has already been declared.");
                            }
                          }
                        },
                        [&](const ast::Block& block) {
                          for (const auto& inner : block.statements) declareIn(*inner);
                        },
                        [&](const ast::If& node_) {
                          declareIn(*node_.then);
                          if (node_.otherwise) declareIn(*node_.otherwise);
                        },
                        [&](const ast::While& loop) { declareIn(*loop.body); }, [](const auto&) {}},
             node.node);
}

Interpreter::Flow Interpreter::block(const std::vector<ast::StatementPtr>& statements) {
  for (const auto& node : statements) {
    const Flow flow = statement(*node);
    if (flow != Flow::Next) return flow;
  }
  return Flow::Next;
}

Interpreter::Flow Interpreter::statement(const ast::Statement& node) {
  return std::visit(
      Overloaded{[&](const ast::Declare& declare) {
                   for (const auto& variable : declare.variables) {
                     if (variable.value) setVariable(variable.name, *variable.value);
                   }
                   return Flow::Next;
                 },
                 [&](const ast::SetVariable& set) {
                   setVariable(set.name, *set.value);
                   return Flow::Next;
                 },
                 [&](const ast::SetIdentityInsert& set) {
                   session_.identityInsert_ =
                       set.on ? toUpperAscii(set.table.last()) : std::string();
                   database().catalogue().touch();  // inserts are bound anew
                   return Flow::Next;
                 },
                 [&](const ast::QueryPtr& query_) {
                   query(*query_);
                   return Flow::Next;
                 },
                 [&](const ast::Insert& insert) {
                   const bool identity =
                       session_.identityInsert_ == toUpperAscii(insert.table.last());
                   const auto ready =
                       compiled(&insert, [&](Compiler c) { return c.insert(insert, identity); });
                   change(ready);
                   if (ready->base->identity >= 0) session_.lastIdentity_ = session_.lastRowId();
                   return Flow::Next;
                 },
                 [&](const ast::Update& update) {
                   change(compiled(&update, [&](Compiler c) { return c.update(update); }));
                   return Flow::Next;
                 },
                 [&](const ast::Delete& remove) {
                   change(compiled(&remove, [&](Compiler c) { return c.remove(remove); }));
                   return Flow::Next;
                 },
                 [&](const ast::Merge& merge) {
                   change(compiled(&merge, [&](Compiler c) { return c.merge(merge); }));
                   return Flow::Next;
                 },
                 [&](const ast::Truncate& truncate) {
                   change(compiled(&truncate, [&](Compiler c) {
                     return c.remove({truncate.table, nullptr, nullptr});
                   }));
                   return Flow::Next;
                 },
                 [&](const ast::CreateTable& create) {
                   if (database().catalogue().table(create.name, session_.id()) ||
                       database().catalogue().module(create.name)) {
                     throw exists(create.name.last());
                   }
                   auto table = Table::from(create);
                   if (table->temporary) {
                     table->owner = session_.id();
                     if (!table->name.starts_with("##"))
                       table->physical += "@" + std::to_string(session_.id());
                   }
                   database().createTable(std::move(table));
                   return Flow::Next;
                 },
                 [&](const ast::CreateIndex& create) {
                   createIndex(create);
                   return Flow::Next;
                 },
                 [&](const ast::CreateModule& create) {
                   createModule(create);
                   return Flow::Next;
                 },
                 [&](const ast::Drop& drop_) {
                   drop(drop_);
                   return Flow::Next;
                 },
                 [&](const ast::Exec& exec_) {
                   exec(exec_);
                   return Flow::Next;
                 },
                 [&](const ast::Block& inner) { return block(inner.statements); },
                 [&](const ast::If& choice) {
                   if (condition(*choice.condition)) return statement(*choice.then);
                   return choice.otherwise ? statement(*choice.otherwise) : Flow::Next;
                 },
                 [&](const ast::While& loop) {
                   while (condition(*loop.condition)) {
                     const Flow flow = statement(*loop.body);
                     if (flow == Flow::Break) break;
                     if (flow == Flow::Return) return flow;
                   }
                   return Flow::Next;
                 },
                 [&](const ast::Return& result) {
                   if (result.value) returned_ = value(*result.value, nullptr);
                   return Flow::Return;
                 },
                 [&](const ast::LoopExit& loopExit) {
                   return loopExit.again ? Flow::Continue : Flow::Break;
                 },
                 [&](const ast::Raise& raise) -> Flow {
                   const SqlType text = SqlType::text(2048);
                   throw SqlError(50000, toDisplay(value(*raise.message, &text)));
                 },
                 [](const ast::Nothing&) { return Flow::Next; }},
      node.node);
}

void Interpreter::counted(std::int64_t rows) {
  session_.rowCount_ = rows;
  session_.rowsAffected_ = std::max<std::int64_t>(session_.rowsAffected_, 0) + rows;
}

void Interpreter::change(const std::shared_ptr<Compiled>& ready) {
  if (ready->steps.size() == 1) return counted(ready->steps[0].run(frame_));
  Transaction transaction(database());
  std::int64_t rows = 0;
  for (std::size_t i = 0; i < ready->steps.size(); ++i) {
    const std::int64_t changed = ready->steps[i].run(frame_);
    if (i > 0 && i <= ready->counted) rows += changed;
  }
  transaction.commit();
  counted(rows);
}

void Interpreter::query(const ast::Query& node) {
  if (const auto* select = std::get_if<ast::Select>(&node.body)) {
    if (select->into) return counted(compiler().selectInto(node, frame_));
    if (!select->items.empty() && !select->items[0].variable.empty()) return assign(node, *select);
  }
  const auto ready = compiled(&node, [&](Compiler c) { return c.query(node); });
  ResultSet result;
  for (const auto& column : ready->columns) {
    result.fields.push_back(column.type.field(column.name));
    result.types.push_back(column.type);
    if (ready->base) result.columns.push_back(column.baseColumn);
  }
  if (ready->base) result.table = ready->base->name;
  PreparedStatement& statement = ready->steps[0];
  statement.start(frame_);
  const Running running(statement);
  const auto width = static_cast<int>(ready->columns.size());
  while (statement.step()) {
    auto& row = result.rows.emplace_back();
    row.reserve(ready->columns.size());
    for (int i = 0; i < width; ++i) {
      const SqlType& type = result.types[static_cast<std::size_t>(i)];
      statement.append(row, i, type);
      if (type.kind == TypeKind::Guid) putInBraces(row.back());
    }
    if (ready->base) result.rowIds.push_back(statement.integer(width));
  }
  result.rowsAffected = static_cast<std::int64_t>(result.rows.size());
  session_.rowCount_ = result.rowsAffected;
  if (results_ == nullptr)
    throw SqlError(444,
                   "Select statements included within a function cannot return data to a client.");
  results_->push_back(std::move(result));
}

void Interpreter::assign(const ast::Query& node, const ast::Select& select) {
  const auto ready = compiled(&node, [&](Compiler c) { return c.query(node); });
  PreparedStatement& statement = ready->steps[0];
  statement.start(frame_);
  const Running running(statement);
  std::int64_t rows = 0;
  for (; statement.step(); ++rows) {
    for (std::size_t i = 0; i < select.items.size(); ++i) {
      const std::string& name = select.items[i].variable;
      Variable& target = variable(name);
      const auto column = static_cast<int>(i);
      target.value = castTo(statement.value(column, ready->columns[i].type), target.type);
    }
  }
  session_.rowCount_ = rows;
}

Value Interpreter::value(const ast::Expr& expr, const SqlType* type) {
  const auto ready = compiled(&expr, [&](Compiler c) { return c.value(expr, type); });
  PreparedStatement& statement = ready->steps[0];
  statement.start(frame_);
  const Running running(statement);
  return statement.step() ? statement.value(0, ready->columns[0].type) : Value(Null{});
}

bool Interpreter::condition(const ast::Expr& expr) {
  const auto ready = compiled(&expr, [&](Compiler c) { return c.condition(expr); });
  PreparedStatement& statement = ready->steps[0];
  statement.start(frame_);
  const Running running(statement);
  return statement.step() && statement.integer(0) != 0;
}

void Interpreter::setVariable(const std::string& name, const ast::Expr& expr) {
  Variable& target = variable(name);
  target.value = value(expr, &target.type);
}

void Interpreter::exec(const ast::Exec& node) {
  const ModulePtr module = database().catalogue().module(node.procedure);
  if (!module || module->tree.kind != ast::ModuleKind::Procedure) {
    throw SqlError(2812, "Could not find stored procedure '" + node.procedure.last() + "'.");
  }
  const auto& parameters = module->tree.parameters;
  if (node.args.size() > parameters.size()) {
    throw SqlError(8144, "Procedure or function " + node.procedure.last() +
                             " has too many arguments specified.");
  }
  Frame frame;
  for (const auto& parameter : parameters)
    frame.variables.emplace(toUpperAscii(parameter.name), Variable{parameter.type, {}});
  for (std::size_t i = 0; i < node.args.size(); ++i) {
    const auto& argument = node.args[i];
    const std::string name =
        argument.name.empty() ? toUpperAscii(parameters[i].name) : argument.name;
    const auto found = frame.variables.find(name);
    if (found == frame.variables.end()) {
      throw SqlError(8145,
                     name + " is not a parameter for procedure " + node.procedure.last() + ".");
    }
    Variable& target = found->second;
    if (argument.value) target.value = value(*argument.value, &target.type);
  }
  Program& program = session_.programOf(module);
  Interpreter callee(session_, program, frame, results_);
  for (const auto& parameter : parameters) {
    Variable& target = frame.variables.at(toUpperAscii(parameter.name));
    if (!target.value.isEmpty()) continue;
    if (!parameter.defaultValue) {
      throw SqlError(201, "Procedure or function '" + node.procedure.last() +
                              "' expects parameter '" + parameter.name +
                              "', which was not supplied.");
    }
    target.value = callee.value(*parameter.defaultValue, &parameter.type);
  }
  constexpr int deepest = 32;
  if (++session_.depth_ > deepest) {
    session_.depth_ = 0;
    throw SqlError(
        217,
        "Maximum stored procedure, function, trigger, or view nesting level exceeded (limit 32).");
  }
  callee.run({module->tree.body});
  --session_.depth_;
}

void Interpreter::createModule(const ast::CreateModule& node) {
  const ModulePtr existing = database().catalogue().module(node.name);
  if (database().catalogue().table(node.name, session_.id()) || (existing && !node.alter))
    throw exists(node.name.last());
  if (node.alter && !existing) throw unknownObject(node.name);
  auto module = std::make_shared<Module>();
  module->text = std::string(node.text);
  module->tree = parseModule(module->text);
  if (module->tree.kind == ast::ModuleKind::View) {
    // What a view refers to must exist; procedures find out when they run.
    const Variables none;
    Binder(database().catalogue(), session_.id(), none).query(*module->tree.query, nullptr);
  }
  database().createModule(module);
}

void Interpreter::createIndex(const ast::CreateIndex& node) {
  const TablePtr table = database().catalogue().table(node.table, session_.id());
  if (!table) throw unknownObject(node.table);
  std::string columns;
  for (const auto& item : node.columns) {
    const auto* column = std::get_if<ast::Column>(&item.expr->node);
    const int index = column == nullptr ? -1 : table->indexOf(column->parts.back());
    if (index < 0) throw SqlError(1911, "Column name does not exist in the target table or view.");
    columns += (columns.empty() ? "" : ", ") +
               quoted(table->columns[static_cast<std::size_t>(index)].name) +
               (item.descending ? " DESC" : "");
  }
  // Indexes of different tables may have the same name, which SQLite does not allow.
  database().run(std::string(node.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                 table->schema() + "." + quoted(table->physical + "." + node.name) + " ON " +
                 quoted(table->physical) + " (" + columns + ")");
}

void Interpreter::drop(const ast::Drop& node) {
  auto& catalogue = database().catalogue();
  for (const auto& name : node.names) {
    if (node.kind == "INDEX") throw SqlError(102, "DROP INDEX is not known.");
    const TablePtr table = node.kind == "TABLE" ? catalogue.table(name, session_.id()) : nullptr;
    const ModulePtr module = node.kind == "TABLE" ? nullptr : catalogue.module(name);
    if (table) {
      database().dropTable(*table);
    } else if (module) {
      database().dropModule(*module);
    } else if (!node.ifExists) {
      throw SqlError(3701,
                     "Cannot drop the " + node.kind + " '" + name.last() +
                         "', because it does not exist or you do not have permission.",
                     "42S02");
    }
  }
}

}  // namespace kebu::engine
