#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ado/connection.h"
#include "workbench/ado/parameter_statement.h"
#include "workbench/ado/statement_observer.h"
#include "workbench/engine/execution/session.h"

namespace kebu::workbench {

/// An ADO connection: a session of the database while it is open.
class AdoConnection : public ado::Connection, public std::enable_shared_from_this<AdoConnection> {
 public:
  AdoConnection(std::shared_ptr<engine::Database> database, StatementObserver* observer)
      : database_(std::move(database)), observer_(observer) {}

  void setConnectionString(const std::string& text) override { connectionString_ = text; }
  std::string connectionString() const override { return connectionString_; }
  void Open() override;
  void Close() override;
  bool isOpen() const override { return session_ != nullptr; }
  Ref<ado::Recordset> Execute(const std::string& text) override;
  void ExecuteNoRecords(const std::string& text) override;
  /// Never calls it: a statement runs on the caller's own thread.
  void whileExecuting(std::function<void()> /*meanwhile*/) override {}
  ado::Errors errors() const override { return errors_; }

  /// Runs a batch; the observer is told of it.
  std::vector<engine::ResultSet> run(const std::string& text);
  /// The same without results.
  void run(const ParameterStatement& statement);
  /// Whether an observer is told of the next statement.
  bool isObserved() const { return observer_ != nullptr && observer_->isListening(); }
  /// Writes one row of a recordset. RuntimeError when it finds no row.
  void edit(const ParameterStatement& statement);
  /// RuntimeError 3709 when the connection is closed.
  engine::Session& session() const;

  /// The connection behind a reference; 3709 for none, a closed one or one of another kind.
  static std::shared_ptr<AdoConnection> behind(const Ref<ado::Connection>& connection);

 private:
  template <class Work>
  void observed(const std::string& text, bool edit, Work&& work);
  void keep(const RuntimeError& error);

  std::shared_ptr<engine::Database> database_;
  StatementObserver* observer_;
  std::string connectionString_;
  std::unique_ptr<engine::Session> session_;
  ado::Errors errors_;
};

}  // namespace kebu::workbench
