#pragma once

#include "workbench/engine/execution/execution.h"

namespace kebu::engine {

/// Runs the statements that define tables, indexes, views, procedures and functions.
class DefinitionInterpreter {
 public:
  explicit DefinitionInterpreter(Execution& execution) : execution_(execution) {}

  void run(const ast::CreateTable& create);
  void run(const ast::CreateIndex& create);
  void run(const ast::CreateModule& create);
  void run(const ast::Drop& drop);

 private:
  void drop(ast::ObjectKind kind, const ast::ObjectName& name, bool ifExists);

  Execution& execution_;
};

}  // namespace kebu::engine
