#include "workbench/engine/execution/execution.h"

#include "workbench/engine/execution/session.h"

namespace kebu::engine {

Database& Execution::database() const {
  return session_.database();
}

Compiler Execution::compiler(Compiler::Purpose purpose) const {
  return {database(), session_.id(), frame_.variables, purpose};
}

std::string Execution::name() const {
  return program_.module ? program_.module->tree.name.last() : std::string();
}

int Execution::lineOf(const ast::Statement& statement) const {
  const std::string& text = program_.module ? program_.module->text : *program_.batch.text;
  return engine::lineOf(text, statement.at);
}

Variable& Execution::variable(const std::string& name) const {
  const auto found = frame_.variables.find(name);
  if (found == frame_.variables.end())
    throw SqlError(137, "Must declare the scalar variable \"" + name + "\".");
  return found->second;
}

/// A statement that is running already, as in a recursive call, is no use.
std::shared_ptr<Compiled> Execution::keptFor(const void* node) const {
  const auto found = program_.compiled.find(node);
  if (found == program_.compiled.end()) return nullptr;
  const bool current = found->second->version == database().catalogue().version();
  return current && !found->second->busy() ? found->second : nullptr;
}

std::shared_ptr<Compiled> Execution::keep(const void* node, std::shared_ptr<Compiled> fresh) {
  std::shared_ptr<Compiled>& kept = program_.compiled[node];
  if (!kept || kept->version != fresh->version) kept = fresh;
  return fresh;
}

Value Execution::value(const ast::Expr& expr, const SqlType* type) {
  const auto ready = compiled(&expr, [&](Compiler c) { return c.value(expr, type); });
  PreparedStatement& statement = ready->steps[0];
  const Running running(statement, frame_);
  return statement.step() ? statement.value(0, ready->columns[0].type) : Value(Null{});
}

bool Execution::condition(const ast::Expr& expr) {
  const auto ready = compiled(&expr, [&](Compiler c) { return c.condition(expr); });
  PreparedStatement& statement = ready->steps[0];
  const Running running(statement, frame_);
  return statement.step() && statement.integer(0) != 0;
}

}  // namespace kebu::engine
