#pragma once

#include <memory>
#include <string>
#include <vector>

#include "windows/support/dispatch.h"
#include "workbench/acceptance/sql_test_file.h"
#include "workbench/host/connections.h"
#include "workbench/player/player.h"

namespace kebu::workbench {

/// A database that is reached through ADO and a connection string. It belongs to the thread that
/// makes it, which has COM.
///
/// The provider "Workbench" is the workbench's own engine, reached through its own objects for COM:
/// "Provider=Workbench" is an empty database in memory, with "Data Source=FILE" a database file.
class RemoteDatabase {
 public:
  /// Opens a connection of its own. CommandError when it cannot.
  explicit RemoteDatabase(std::string connectionString);
  ~RemoteDatabase();
  RemoteDatabase(const RemoteDatabase&) = delete;
  RemoteDatabase& operator=(const RemoteDatabase&) = delete;

  /// For the host and the plug-in.
  CompanyDatabase company() const;
  /// Runs a batch on its own connection: the results of all its queries. RuntimeError.
  std::vector<engine::ResultSet> run(const std::string& batch) const;
  SqlRunner runner() const {
    return [this](const std::string& batch) { return run(batch); };
  }
  /// The same with the database's own error.
  SqlOutcome outcomeOf(const std::string& batch) const;
  /// Ends its connection and with it the temporary tables, and opens another one.
  void reopen();
  /// The versions of ADO, provider and server, a line each.
  std::vector<std::string> versions() const;

 private:
  class Engine;

  windows::Dispatch connection() const;

  std::string connectionString_;
  std::unique_ptr<Engine> engine_;  ///< null for other providers
  Ref<ado::Connection> connection_;
};

}  // namespace kebu::workbench
