#pragma once

#include <string>
#include <vector>

#include "workbench/engine/execution/data_interpreter.h"
#include "workbench/engine/execution/definition_interpreter.h"
#include "workbench/engine/execution/execution.h"

namespace kebu::engine {

/// Runs the statements of a batch, procedure or function. Those of control and variables it
/// runs itself, the others are run by the interpreters of data and of definitions.
class Interpreter {
 public:
  explicit Interpreter(Execution& execution)
      : execution_(execution), data_(execution), definitions_(execution) {}

  /// What fails ends its statement, with an event, or the batch, as an SqlError with its place.
  void run(const std::vector<ast::StatementPtr>& statements);
  /// Declares the variables and checks all names, and runs nothing. SqlError with its place.
  void check(const std::vector<ast::StatementPtr>& statements);
  /// Both, as a batch is run.
  void runChecked(const std::vector<ast::StatementPtr>& statements);
  /// What RETURN gave.
  const Value& returned() const { return returned_; }

 private:
  enum class Flow { Next, Break, Continue, Return };

  void declareIn(const std::vector<ast::StatementPtr>& statements);
  void declareIn(const ast::Statement& node);
  Flow block(const std::vector<ast::StatementPtr>& statements);
  Flow statement(const ast::Statement& node);
  Flow dispatch(const ast::Statement& node);
  Flow fail(const ast::Statement& node, SqlError& error);

  Flow run(const ast::Declare& node);
  Flow run(const ast::SetVariable& node);
  Flow run(const ast::SetIdentityInsert& node);
  Flow run(const ast::SetXactAbort& node);
  Flow run(const ast::Block& node);
  Flow run(const ast::If& node);
  Flow run(const ast::While& node);
  Flow run(const ast::Break& /*node*/) { return Flow::Break; }
  Flow run(const ast::Continue& /*node*/) { return Flow::Continue; }
  Flow run(const ast::Return& node);
  Flow run(const ast::Raise& node);
  Flow run(const ast::Exec& node);
  Flow run(const ast::Nothing& /*node*/) { return Flow::Next; }
  void assign(const std::string& name, const ast::Expr& expr);

  Execution& execution_;
  DataInterpreter data_;
  DefinitionInterpreter definitions_;
  Value returned_;
};

}  // namespace kebu::engine
