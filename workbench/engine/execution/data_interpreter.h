#pragma once

#include <memory>

#include "workbench/engine/execution/execution.h"

namespace kebu::engine {

/// Runs the statements that read and change rows.
class DataInterpreter {
 public:
  explicit DataInterpreter(Execution& execution) : execution_(execution) {}

  void run(const ast::QueryPtr& query);
  void run(const ast::Insert& insert);
  void run(const ast::Update& update);
  void run(const ast::Delete& remove);
  void run(const ast::Merge& merge);
  void run(const ast::Truncate& truncate);

 private:
  void select(const ast::Query& node);
  /// SELECT @x = …
  void assign(const ast::Query& node, const ast::Select& select);
  void change(const std::shared_ptr<Compiled>& ready);
  /// The same for a statement that may give one row the key that another one loses.
  void changeRows(const std::shared_ptr<Compiled>& ready);
  void countRows(std::int64_t rows);

  Execution& execution_;
};

}  // namespace kebu::engine
