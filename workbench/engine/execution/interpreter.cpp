#include "workbench/engine/execution/interpreter.h"

#include <utility>

#include "common/convert.h"
#include "common/overloaded.h"
#include "workbench/engine/execution/session.h"

namespace kebu::engine {

void Interpreter::run(const std::vector<ast::StatementPtr>& statements) {
  // A declaration counts from the start, wherever it stands.
  for (const auto& node : statements) declareIn(*node);
  block(statements);
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
                 [&](const ast::Block& block) {
                   for (const auto& inner : block.statements) declareIn(*inner);
                 },
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
  return std::visit(
      [&](const auto& kind) {
        if constexpr (requires { data_.run(kind); }) {
          data_.run(kind);
          return Flow::Next;
        } else if constexpr (requires { definitions_.run(kind); }) {
          definitions_.run(kind);
          return Flow::Next;
        } else {
          return run(kind);
        }
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

Interpreter::Flow Interpreter::run(const ast::Raise& node) {
  const SqlType text = SqlType::text(2048);
  throw SqlError(50000, toDisplay(execution_.value(*node.message, &text)));
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
  Execution called(session, session.programOf(module), frame, execution_.results());
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
  const CallLevel level(session.state());
  Interpreter(called).run({module->tree.body});
  return Flow::Next;
}

}  // namespace kebu::engine
