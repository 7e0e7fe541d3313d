#pragma once

#include "workbench/engine/execution/execution.h"

namespace kebu::engine {

/// Checks the names in all statements of a batch before the first of them runs. What refers to
/// an object that does not exist yet is left to its statement: an earlier one may make it.
class BatchChecker {
 public:
  explicit BatchChecker(Execution& execution) : execution_(execution) {}

  /// SqlError with the place of the statement.
  void check(const std::vector<ast::StatementPtr>& statements);

 private:
  void check(const ast::Statement& statement);
  void bind(const ast::Statement& statement);

  Execution& execution_;
};

}  // namespace kebu::engine
