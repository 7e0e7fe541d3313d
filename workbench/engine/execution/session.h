#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "common/value.h"
#include "workbench/engine/execution/program.h"
#include "workbench/engine/execution/result_set.h"
#include "workbench/engine/functions/functions.h"
#include "workbench/engine/syntax/parser.h"

namespace kebu::engine {

/// What the statements of a session tell those behind them.
struct SessionState {
  std::int64_t rowsAffected = -1;             ///< by the batch so far; -1 when it has only read
  std::int64_t rowCount = 0;                  ///< @@ROWCOUNT
  std::int32_t lastError = 0;                 ///< @@ERROR
  bool xactAbort = false;                     ///< SET XACT_ABORT ON: every error ends the batch
  std::optional<std::int64_t> lastIdentity;   ///< @@IDENTITY
  std::optional<std::int64_t> scopeIdentity;  ///< SCOPE_IDENTITY() of the batch or procedure
  std::string identityInsert;  ///< the table, in upper case, whose IDENTITY_INSERT is ON
  std::size_t depth = 0;       ///< of procedures and functions that call each other
};

class Session;

/// A call of a procedure, until its end: SCOPE_IDENTITY and XACT_ABORT are its own, and so are
/// the local temporary tables that it makes.
class ProcedureScope {
 public:
  explicit ProcedureScope(Session& session);
  ProcedureScope(const ProcedureScope&) = delete;
  ProcedureScope& operator=(const ProcedureScope&) = delete;
  ~ProcedureScope();

 private:
  Session& session_;
  std::vector<TablePtr> outerTables_;
  std::optional<std::int64_t> outerIdentity_;
  bool outerXactAbort_;
};

/// The state of one connection: its temporary tables, which end with it, its last identity,
/// and the programs of the batches that it ran last.
class Session {
 public:
  explicit Session(std::shared_ptr<Database> database);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  /// Runs a batch: the results of its queries and its errors, in order. Some errors end their
  /// statement only, others the batch; what was done before stays done.
  std::vector<BatchEvent> run(const std::string& batch);
  /// The same for callers that want no errors: throws the first SqlError at the batch's end.
  std::vector<ResultSet> execute(const std::string& batch);
  /// The rows that the last batch inserted, changed and deleted; -1 when it only read.
  std::int64_t rowsAffected() const { return state_.rowsAffected; }
  /// Ends what runs in the database, with an error; may be called on another thread.
  void interrupt();
  /// For the interpreters.
  SessionState& state() { return state_; }
  /// The id of the row last inserted.
  std::int64_t lastRowId() const;
  /// A stored procedure. SqlError 2812 when there is none of the name.
  ModulePtr procedure(const std::string& name) const;

  int id() const { return id_; }
  Database& database() const { return *database_; }
  /// "@@ROWCOUNT" and the like.
  Value globalVariable(const std::string& name) const;
  /// The statements of a procedure or function, with what was compiled of them.
  Program& programOf(const ModulePtr& module);
  /// Runs a scalar function that is written in T-SQL; SQLite calls it within a statement.
  Cell callFunction(const std::string& name, CellArguments args);

 private:
  std::shared_ptr<Program> programForLiterals(const std::string& batch,
                                              std::vector<ast::Literal>& literals);
  std::vector<BatchEvent> run(Program& program, const std::vector<ast::Literal>& literals);
  std::shared_ptr<Program> keptProgram(const std::string& key) const;

  std::shared_ptr<Database> database_;
  int id_;
  SessionState state_;
  /// By the text or form that they serve. When there are too many, all are forgotten.
  std::unordered_map<std::string, std::shared_ptr<Program>> programs_;
  std::map<ModulePtr, Program> modules_;
};

}  // namespace kebu::engine
