#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "workbench/engine/binding/query_binder.h"
#include "workbench/engine/binding/scope.h"
#include "workbench/engine/execution/prepared.h"

namespace kebu::engine {

/// A temporary table that holds the join of a MERGE while it runs.
class ScratchTable {
 public:
  ScratchTable(Database& database, std::size_t columns);
  ScratchTable(const ScratchTable&) = delete;
  ScratchTable& operator=(const ScratchTable&) = delete;
  ~ScratchTable();
  std::string name() const { return "tempdb." + name_; }

 private:
  Database& database_;
  std::string name_;
};

/// A T-SQL statement prepared for SQLite. It is valid as long as the catalogue has the
/// version that it was compiled for.
struct Compiled {
  std::int64_t version = 0;
  std::vector<BoundQuery::Column> columns;  ///< of a query
  TablePtr base;                            ///< the table that is read or changed
  std::unique_ptr<ScratchTable> scratch;    ///< used by the steps
  std::vector<PreparedStatement> steps;
  std::size_t counted = 0;  ///< how many steps, from the second on, change the table

  bool busy() const;
};

/// Compiles single statements for a session.
class Compiler {
 public:
  /// Check: only names and types are looked at, nothing is prepared.
  enum class Purpose { Run, Check };

  Compiler(Database& database, int session, const Variables& variables, Purpose purpose)
      : database_(database), session_(session), variables_(variables), purpose_(purpose) {}

  Database& database() const { return database_; }
  /// What one statement is bound with.
  BindingContext context() const { return {database_.catalogue(), session_, variables_}; }
  Purpose purpose() const { return purpose_; }
  /// A statement without steps, of the catalogue's current version.
  Compiled start() const;
  /// Prepares one more step.
  void add(Compiled& compiled, const std::string& sql, const BindingContext& context) const;

  Compiled query(const ast::Query& node);
  /// A query of one column: the value of an expression, converted when a type is given.
  Compiled value(const ast::Expr& node, const SqlType* type = nullptr);
  Compiled condition(const ast::Expr& node);
  /// `identityInsert`: whether the identity column may be named.
  Compiled insert(const ast::Insert& node, bool identityInsert);
  Compiled update(const ast::Update& node);
  Compiled remove(const ast::Delete& node);
  Compiled merge(const ast::Merge& node);
  /// SELECT … INTO: makes the table and fills it; the number of rows.
  std::int64_t selectInto(const ast::Query& node, const Frame& frame);

 private:
  Database& database_;
  int session_;
  const Variables& variables_;
  Purpose purpose_;
};

/// An assignment of an UPDATE as SQLite takes it.
struct BoundAssignment {
  std::string column;
  std::string value;
};
std::vector<BoundAssignment> boundAssignments(BindingContext& context, const Table& table,
                                              const std::vector<ast::Assignment>& set,
                                              const Scope& scope);
/// "a = x, …"
std::string assignmentList(const std::vector<BoundAssignment>& assignments);
/// The columns of an INSERT: the named ones, and those that get their default.
struct InsertTargets {
  std::vector<int> columns;    ///< those that the values are for
  std::vector<int> defaulted;  ///< those that get their default
  std::string list;            ///< both, as SQLite's column list

  InsertTargets(const Table& table, const std::vector<std::string>& names, bool identityInsert);
};
/// A column's default, or NULL.
std::string boundDefault(BindingContext& context, const Table& table, int index);

}  // namespace kebu::engine
