#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "workbench/engine/binding/binding_context.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/values/cell.h"

namespace kebu::engine {

/// The variables of a batch or procedure while it runs, and the batch's literals.
struct Frame {
  Variables variables;
  const std::vector<ast::Literal>* literals = nullptr;
};

/// A prepared statement of SQLite, with the values that it takes.
class PreparedStatement {
 public:
  PreparedStatement(Database& database, const std::string& sql, std::vector<Slot> slots = {});

  /// Binds its values. step() then goes to the next row; false at the end.
  void start(const Frame& frame);
  bool step();
  void reset() { sqlite3_reset(statement_.get()); }
  /// Runs to the end; the number of rows changed.
  std::int64_t run(const Frame& frame);
  /// A column of the row that step() went to.
  Value value(int column, const SqlType& type) const { return valueOf(at(column), type); }
  std::int64_t integer(int column) const { return sqlite3_value_int64(at(column)); }
  bool busy() const { return sqlite3_stmt_busy(statement_.get()) != 0; }

 private:
  sqlite3_value* at(int column) const { return sqlite3_column_value(statement_.get(), column); }

  Database& database_;
  Prepared statement_;
  std::vector<Slot> slots_;
};

/// Starts a statement, and resets it at the end of a block, also when an error leaves it.
class Running {
 public:
  Running(PreparedStatement& statement, const Frame& frame) : statement_(statement) {
    statement_.start(frame);
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() { statement_.reset(); }

 private:
  PreparedStatement& statement_;
};

}  // namespace kebu::engine
