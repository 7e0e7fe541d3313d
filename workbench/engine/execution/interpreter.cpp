#include "workbench/engine/execution/interpreter.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/convert.h"
#include "common/overloaded.h"
#include "workbench/engine/execution/batch_checker.h"
#include "workbench/engine/execution/session.h"
#include "workbench/engine/nesting_level.h"

namespace kebu::engine {
namespace {

/// The errors after which a batch goes on with its next statement. Others end the batch, such
/// as those of conversions and of missing objects.
bool endsItsStatementOnly(const SqlError& error) {
  if (error.endsBatch()) return false;
  static constexpr std::array<std::int32_t, 20> numbers{201,  220,  512,  515,  517,  537,  544,
                                                        547,  1222, 1505, 2601, 2627, 2628, 2714,
                                                        2812, 3701, 8115, 8134, 8672, 50000};
  return std::find(numbers.begin(), numbers.end(), error.nativeError()) != numbers.end();
}

}  // namespace

void Interpreter::run(const std::vector<ast::StatementPtr>& statements) {
  // A declaration counts from the start, wherever it stands.
  declareIn(statements);
  block(statements);
}

void Interpreter::check(const std::vector<ast::StatementPtr>& statements) {
  declareIn(statements);
  BatchChecker(execution_).check(statements);
}

void Interpreter::runChecked(const std::vector<ast::StatementPtr>& statements) {
  // A statement alone is checked as it runs.
  if (statements.size() == 1) {
    declareIn(statements);
  } else {
    check(statements);
  }
  block(statements);
}

void Interpreter::declareIn(const std::vector<ast::StatementPtr>& statements) {
  for (const auto& node : statements) declareIn(*node);
}

void Interpreter::declareIn(const ast::Statement& node) {
  std::visit(
      Overloaded{[&](const ast::Declare& declare) {
                   for (const auto& variable : declare.variables) {
                     const Variable declared{variable.type, Null{}};
                     if (!execution_.frame().variables.emplace(variable.name, declared).second) {
                       throw SqlError(134, "The variable name '" + variable.name +
                                               "' has already been declared.");
                     }
                   }
                 },
                 [&](const ast::Block& block) { declareIn(block.statements); },
                 [&](const ast::If& choice) {
                   declareIn(*choice.then);
                   if (choice.otherwise) declareIn(*choice.otherwise);
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
  try {
    return dispatch(node);
  } catch (SqlError& error) {
    return fail(node, error);
  } catch (const RuntimeError&) {
    // A decimal became too large outside of SQLite, as in SET @x = ….
    SqlError error(8115, "Arithmetic overflow error converting expression to data type numeric.");
    return fail(node, error);
  }
}

/// An error ends its statement or the whole batch.
Interpreter::Flow Interpreter::fail(const ast::Statement& node, SqlError& error) {
  error.setPlace(execution_.lineOf(node), execution_.name());
  SessionState& state = execution_.session().state();
  state.lastError = error.nativeError();
  state.rowCount = 0;
  const bool goesOn =
      execution_.events() != nullptr && !state.xactAbort && endsItsStatementOnly(error);
  if (!goesOn) throw SqlError(error);
  execution_.events()->push_back(error);
  return Flow::Next;
}

Interpreter::Flow Interpreter::dispatch(const ast::Statement& node) {
  return std::visit(
      [&](const auto& kind) {
        if constexpr (requires { data_.run(kind); }) {
          data_.run(kind);
        } else if constexpr (requires { definitions_.run(kind); }) {
          definitions_.run(kind);
        } else {
          return run(kind);
        }
        execution_.session().state().lastError = 0;
        return Flow::Next;
      },
      node.node);
}

Interpreter::Flow Interpreter::run(const ast::Declare& node) {
  for (const auto& variable : node.variables) {
    if (variable.value) assign(variable.name, *variable.value);
  }
  return Flow::Next;
}

Interpreter::Flow Interpreter::run(const ast::SetVariable& node) {
  assign(node.name, *node.value);
  return Flow::Next;
}

Interpreter::Flow Interpreter::run(const ast::SetIdentityInsert& node) {
  execution_.session().state().identityInsert =
      node.on ? toUpperAscii(node.table.last()) : std::string();
  execution_.database().catalogue().touch();  // INSERTs must be compiled again
  return Flow::Next;
}

Interpreter::Flow Interpreter::run(const ast::Block& node) {
  return block(node.statements);
}

Interpreter::Flow Interpreter::run(const ast::If& node) {
  if (execution_.condition(*node.condition)) return statement(*node.then);
  return node.otherwise ? statement(*node.otherwise) : Flow::Next;
}

Interpreter::Flow Interpreter::run(const ast::While& node) {
  while (execution_.condition(*node.condition)) {
    const Flow flow = statement(*node.body);
    if (flow == Flow::Break) break;
    if (flow == Flow::Return) return flow;
  }
  return Flow::Next;
}

Interpreter::Flow Interpreter::run(const ast::Return& node) {
  if (node.value) returned_ = execution_.value(*node.value, nullptr);
  return Flow::Return;
}

Interpreter::Flow Interpreter::run(const ast::SetXactAbort& node) {
  execution_.session().state().xactAbort = node.on;
  return Flow::Next;
}

Interpreter::Flow Interpreter::run(const ast::Raise& node) {
  const SqlType text = SqlType::text(2048);
  SqlError error(50000, toDisplay(execution_.value(*node.message, &text)));
  if (node.endsBatch) error.endBatch();
  throw SqlError(error);
}

void Interpreter::assign(const std::string& name, const ast::Expr& expr) {
  Variable& target = execution_.variable(name);
  target.value = execution_.value(expr, &target.type);
}

Interpreter::Flow Interpreter::run(const ast::Exec& node) {
  const ModulePtr module = execution_.database().catalogue().module(node.procedure);
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
    if (argument.value) target.value = execution_.value(*argument.value, &target.type);
  }
  Session& session = execution_.session();
  Execution called(session, session.programOf(module), frame, execution_.events());
  for (const auto& parameter : parameters) {
    Variable& target = frame.variables.at(toUpperAscii(parameter.name));
    if (!target.value.isEmpty()) continue;
    if (!parameter.defaultValue) {
      throw SqlError(201, "Procedure or function '" + node.procedure.last() +
                              "' expects parameter '" + parameter.name +
                              "', which was not supplied.");
    }
    target.value = called.value(*parameter.defaultValue, &parameter.type);
  }
  const NestingLevel level(session.state().depth, nestingLimit, nestedTooDeeply);
  const ProcedureScope scope(session);
  Interpreter(called).run({module->tree.body});
  return Flow::Next;
}

}  // namespace kebu::engine
