#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "workbench/engine/execution/compiler.h"
#include "workbench/engine/execution/program.h"
#include "workbench/engine/execution/result_set.h"

namespace kebu::engine {

class Session;

/// One run of a batch, procedure or function: its session, its statements, its variables,
/// and where its results go.
class Execution {
 public:
  /// `events`: null in a function, which may not give results, and ends at its first error.
  Execution(Session& session, Program& program, Frame& frame, std::vector<BatchEvent>* events)
      : session_(session), program_(program), frame_(frame), events_(events) {}

  Session& session() const { return session_; }
  Database& database() const;
  Frame& frame() const { return frame_; }
  std::vector<BatchEvent>* events() const { return events_; }
  /// The name of the procedure or function; "" in a batch.
  std::string name() const;
  /// The line of a statement in the batch or module, from 1.
  int lineOf(const ast::Statement& statement) const;

  /// SqlError 137 when it is not declared.
  Variable& variable(const std::string& name) const;
  /// The value of an expression, converted when a type is given.
  Value value(const ast::Expr& expr, const SqlType* type);
  bool condition(const ast::Expr& expr);

  Compiler compiler(Compiler::Purpose purpose = Compiler::Purpose::Run) const;
  /// What `make` compiles of a node of the tree; kept as long as the catalogue stays the same.
  template <class Make>
  std::shared_ptr<Compiled> compiled(const void* node, Make&& make) {
    if (auto kept = keptFor(node)) return kept;
    return keep(node, std::make_shared<Compiled>(make(compiler())));
  }

 private:
  std::shared_ptr<Compiled> keptFor(const void* node) const;
  std::shared_ptr<Compiled> keep(const void* node, std::shared_ptr<Compiled> fresh);

  Session& session_;
  Program& program_;
  Frame& frame_;
  std::vector<BatchEvent>* events_;
};

}  // namespace kebu::engine
