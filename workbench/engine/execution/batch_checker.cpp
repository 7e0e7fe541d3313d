#include "workbench/engine/execution/batch_checker.h"

#include <algorithm>
#include <array>

#include "common/overloaded.h"

namespace kebu::engine {
namespace {

/// Whether the error is of an object that does not exist.
bool isOfMissingObject(const SqlError& error) {
  static constexpr std::array<std::int32_t, 2> numbers{208, 4121};
  return std::find(numbers.begin(), numbers.end(), error.nativeError()) != numbers.end();
}

}  // namespace

void BatchChecker::check(const std::vector<ast::StatementPtr>& statements) {
  for (const auto& statement : statements) check(*statement);
}

void BatchChecker::check(const ast::Statement& statement) {
  try {
    bind(statement);
  } catch (SqlError& error) {
    if (isOfMissingObject(error)) return;
    error.setPlace(execution_.lineOf(statement), execution_.name());
    throw;
  }
}

void BatchChecker::bind(const ast::Statement& statement) {
  Compiler compiler = execution_.compiler(Compiler::Purpose::Check);
  std::visit(Overloaded{[&](const ast::QueryPtr& query) { compiler.query(*query); },
                        [&](const ast::Insert& insert) { compiler.insert(insert, true); },
                        [&](const ast::Update& update) { compiler.update(update); },
                        [&](const ast::Delete& remove) { compiler.remove(remove); },
                        [&](const ast::Merge& merge) { compiler.merge(merge); },
                        [&](const ast::SetVariable& set) {
                          static_cast<void>(execution_.variable(set.name));
                          compiler.value(*set.value);
                        },
                        [&](const ast::Declare& declare) {
                          for (const auto& variable : declare.variables) {
                            if (variable.value) compiler.value(*variable.value);
                          }
                        },
                        [&](const ast::Block& block) { check(block.statements); },
                        [&](const ast::If& choice) {
                          check(*choice.then);
                          if (choice.otherwise) check(*choice.otherwise);
                          compiler.condition(*choice.condition);
                        },
                        [&](const ast::While& loop) {
                          check(*loop.body);
                          compiler.condition(*loop.condition);
                        },
                        [](const auto&) {}},
             statement.node);
}

}  // namespace kebu::engine
