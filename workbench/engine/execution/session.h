#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "ado/recordset.h"
#include "common/value.h"
#include "workbench/engine/execution/interpreter.h"
#include "workbench/engine/functions/functions.h"
#include "workbench/engine/syntax/parser.h"

namespace kebu::engine {

/// The rows of one query.
struct ResultSet {
  std::vector<ado::Field> fields;
  std::vector<SqlType> types;
  std::vector<std::vector<Value>> rows;
  std::int64_t rowsAffected = 0;

  /// Where the rows are those of one table: its name, its column behind every
  /// field ("" for computed ones), and the id of every row.
  std::string table;
  std::vector<std::string> columns;
  std::vector<std::int64_t> rowIds;
};

/// What one connection keeps: its temporary tables, its last identity, the plans
/// of its statements. Its temporary tables end with it.
class Session {
 public:
  explicit Session(std::shared_ptr<Database> database);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  /// Runs a batch; the results of its queries in order. Throws SqlError at the
  /// first statement that fails; what was done before stays done.
  std::vector<ResultSet> execute(const std::string& batch);
  /// The same with a value of the given type for every "?" of the batch, in their
  /// order. The batch has no literals besides; std::logic_error when they do not fit.
  std::vector<ResultSet> execute(const std::string& batch,
                                 const std::vector<ast::Literal>& parameters);
  /// The rows that the last batch inserted, changed and deleted; -1 when it only read.
  std::int64_t rowsAffected() const { return rowsAffected_; }
  std::optional<std::int64_t> lastIdentity() const { return lastIdentity_; }
  /// The id of the row last inserted.
  std::int64_t lastRowId() const;
  /// A stored procedure. SqlError 2812 when there is none of the name.
  ModulePtr procedure(const std::string& name) const;

  int id() const { return id_; }
  Database& database() const { return *database_; }
  /// "@@ROWCOUNT" and the like.
  Value globalVariable(const std::string& name) const;
  /// A scalar function of T-SQL's, called from within a statement.
  Cell callFunction(const std::string& name, CellArguments args);

 private:
  friend class Interpreter;
  std::shared_ptr<Program> planOfLiterals(const std::string& batch,
                                          std::vector<ast::Literal>& literals);
  std::shared_ptr<Program> planOfParameters(const std::string& batch,
                                            const std::vector<ast::Literal>& parameters);
  std::vector<ResultSet> run(Program& program, const std::vector<ast::Literal>& literals);
  std::shared_ptr<Program> knownPlan(const std::string& key);
  std::shared_ptr<Program> keepPlan(const std::string& key,
                                    const std::shared_ptr<Program>& program);
  Program& programOf(const ModulePtr& module);

  std::shared_ptr<Database> database_;
  int id_;
  std::int64_t rowsAffected_ = -1;
  std::int64_t rowCount_ = 0;
  std::optional<std::int64_t> lastIdentity_;
  std::string identityInsert_;  ///< the table whose identity may be given
  int depth_ = 0;
  std::list<std::pair<std::string, std::shared_ptr<Program>>> plans_;  ///< the last used first
  std::unordered_map<std::string_view, decltype(plans_)::iterator> planOf_;
  std::map<ModulePtr, Program> modules_;
};

}  // namespace kebu::engine
