#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "workbench/engine/execution/prepared.h"

namespace kebu::engine {

/// A table that a MERGE keeps its join in while it runs.
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

/// A T-SQL statement made ready for SQLite. Good as long as the catalogue stays
/// at the version that it was compiled for.
struct Compiled {
  std::int64_t version = 0;
  std::vector<BoundQuery::Column> columns;  ///< of a query
  TablePtr base;                            ///< whose rows a query gives, or an INSERT makes
  std::unique_ptr<ScratchTable> scratch;    ///< ends after the statements
  std::vector<PreparedStatement> steps;
  std::size_t counted = 0;  ///< how many steps, from the second on, change the table

  bool busy() const;
};

/// Compiles single statements for a session.
class Compiler {
 public:
  Compiler(Database& database, int session, const Variables& variables)
      : database_(database), session_(session), variables_(variables) {}

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
  friend class MergeCompiler;
  Binder binder() const { return {database_.catalogue(), session_, variables_}; }
  Compiled start() const;

  Database& database_;
  int session_;
  const Variables& variables_;
};

/// Binds "SET a = x, …" for SQLite's UPDATE.
std::string boundAssignments(Binder& binder, const Table& table,
                             const std::vector<ast::Assignment>& set, const Scope& scope);
/// The target list and values of an INSERT: names by their columns, defaults where nothing is said.
struct InsertTargets {
  std::vector<int> columns;    ///< that the values go to
  std::vector<int> defaulted;  ///< that take their default besides
  std::string list;            ///< all of them, for SQLite

  InsertTargets(const Table& table, const std::vector<std::string>& names, bool identityInsert);
};
/// A column's default, or NULL.
std::string boundDefault(Binder& binder, const Table& table, int index);

}  // namespace kebu::engine
