#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ado/connection.h"
#include "workbench/ado/manners.h"
#include "workbench/ado/statement_observer.h"
#include "workbench/engine/execution/session.h"

namespace kebu::workbench {

/// The rows of a forward-only cursor on the server.
struct UnreadRows {
  std::string source;  ///< their statement
  bool atEnd = false;  ///< they were read to their end
};

/// An ADO connection: a session of the database while it is open.
class AdoConnection : public ado::Connection, public std::enable_shared_from_this<AdoConnection> {
 public:
  AdoConnection(std::shared_ptr<engine::Database> database, StatementObserver* observer,
                const Manners& manners)
      : database_(std::move(database)), observer_(observer), manners_(manners) {}

  void setConnectionString(const std::string& text) override { connectionString_ = text; }
  std::string connectionString() const override { return connectionString_; }
  void Open() override;
  void Close() override;
  /// Also while it is lost: ADO does not notice before somebody closes it.
  bool isOpen() const override { return session_ != nullptr || lost_; }
  void setCommandTimeout(std::int32_t seconds) override { commandTimeout_ = seconds; }
  Ref<ado::Recordset> Execute(const std::string& text) override;
  void ExecuteNoRecords(const std::string& text) override;
  /// Calls it only while a statement is interrupted: statements run on the caller's own thread.
  void whileExecuting(std::function<bool()> goOn) override { goOn_ = std::move(goOn); }
  /// The statement that runs on another thread fails with 3712, unless it has ended.
  void cancel();
  /// From here to setAsynchronous(false) a statement runs on a thread of its own.
  void setAsynchronous(bool asynchronous);
  ado::Errors errors() const override { return errors_; }
  void clearErrors() { errors_.clear(); }
  std::int32_t commandTimeout() const { return commandTimeout_; }

  /// Runs a batch; the observer is told of it.
  std::vector<engine::ResultSet> run(const std::string& text) { return run(text, commandTimeout_); }
  std::vector<engine::ResultSet> run(const std::string& text, std::int32_t timeout);
  /// Writes one row of a recordset. RuntimeError when it finds no row, or several; these are
  /// changed then.
  void edit(const std::string& statement);
  /// The rows occupy the connection until they are read to their end or gone. Another statement
  /// meanwhile would go over a second connection, of which the observer is told.
  void occupy(const std::shared_ptr<UnreadRows>& rows) { unread_ = rows; }
  const Manners& manners() const { return manners_; }
  /// RuntimeError 3709 when the connection is closed, a ProviderError when it is lost.
  engine::Session& session();

  /// The connection behind a reference; 3709 for none, a closed one or one of another kind.
  static std::shared_ptr<AdoConnection> behind(const Ref<ado::Connection>& connection);

 private:
  template <class Work>
  void observed(const std::string& text, bool edit, std::int32_t timeout, Work&& work);
  void keep(const RuntimeError& error);
  /// ProviderError when the server went away since the connection was opened.
  void requireServer();
  /// Waits for the user's interruption; 3712 when the statement was cancelled.
  void awaitCancel();

  std::shared_ptr<engine::Database> database_;
  StatementObserver* observer_;
  Manners manners_;
  std::string connectionString_;
  std::int32_t commandTimeout_ = ado::usualTimeout;
  std::function<bool()> goOn_;
  std::atomic<bool> cancelled_ = false;
  std::atomic<bool> asynchronous_ = false;
  std::weak_ptr<UnreadRows> unread_;
  std::unique_ptr<engine::Session> session_;
  int outagesBefore_ = 0;  ///< of the server, when it was opened
  bool lost_ = false;
  ado::Errors errors_;
};

}  // namespace kebu::workbench
