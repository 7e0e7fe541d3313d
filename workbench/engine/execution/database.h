#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/engine/catalogue/catalogue.h"
#include "workbench/engine/sqlite.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {

class Session;

/// A database in a file or in memory, its catalogue, and the temporary tables of all sessions.
/// It must not be used from several threads at once.
class Database {
 public:
  /// RuntimeError when the file is missing, is no database, or was not made by createFile.
  static std::shared_ptr<Database> openFile(const std::string& path);
  /// RuntimeError when there is such a file already.
  static std::shared_ptr<Database> createFile(const std::string& path);
  static std::shared_ptr<Database> createInMemory();
  /// A copy in memory, without the temporary tables. It is quicker than running the scripts.
  std::shared_ptr<Database> clone() const;

  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database() = default;

  Catalogue& catalogue() { return catalogue_; }
  const Catalogue& catalogue() const { return catalogue_; }
  sqlite3* handle() const { return handle_.get(); }
  /// Runs SQL of SQLite that takes no values and gives no rows.
  void run(const std::string& sql);

  void createTable(std::shared_ptr<Table> table);
  void dropTable(const Table& table);
  void createModule(const ModulePtr& module);
  void dropModule(const Module& module);

  /// What IDENT_CURRENT gives; nothing for a table without identity.
  std::optional<std::int64_t> currentIdentity(const Table& table);
  /// Uses up the next identity, as a row does that is refused.
  void skipIdentity(const Table& table);

  int newSessionId() { return ++sessions_; }
  std::string newScratchName() { return "kb_scratch_" + std::to_string(++scratches_); }
  /// Runs a change of the table's rows, and checks its unique indexes at the end only.
  void withKeysAtTheEnd(const Table& table, const std::function<void()>& change);

  /// The session whose statement runs: what functions such as OBJECT_ID refer to.
  Session* current() const { return current_; }
  Session* setCurrent(Session* session) { return std::exchange(current_, session); }

  /// Keeps the error of a function until SQLite reports that the statement failed.
  void raise(SqlError error) { raised_ = std::move(error); }
  /// SQLite's last error, with SQL Server's number and text.
  SqlError lastError();

 private:
  explicit Database(Handle handle);
  static Handle open(const std::string& path, int flags);
  void setUp();
  void load();
  /// SqlError when a table is not stored as the catalogue says, as in a damaged file.
  void checkTables() const;
  struct UniqueIndex {
    std::string name;
    std::string sql;
  };
  std::vector<UniqueIndex> uniqueIndexes(const Table& table) const;
  /// The name in T-SQL of a table of SQLite's.
  std::string nameOf(const std::string& physical) const;
  SqlError duplicateKey(const std::string& physical, const std::vector<std::string>& columns,
                        const std::string& index);

  Handle handle_;
  std::map<std::string, Prepared>
      identities_;  ///< by schema: the query for a table's last identity
  Catalogue catalogue_;
  std::optional<SqlError> raised_;
  Session* current_ = nullptr;
  int sessions_ = 0;
  int scratches_ = 0;
};

/// Undoes everything since its construction, unless it is committed.
class Transaction {
 public:
  explicit Transaction(Database& database);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();
  void commit();

 private:
  Database& database_;
  bool isOuter_;
  bool open_ = true;
};

}  // namespace kebu::engine
