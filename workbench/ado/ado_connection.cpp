#include "workbench/ado/ado_connection.h"

#include <utility>

#include "workbench/ado/ado_error.h"
#include "workbench/ado/ado_recordset.h"

namespace kebu::workbench {
namespace {

/// The number of rows that a batch changed, or that its first query gave when it only read.
std::int64_t rowsOf(const engine::Session& session, const std::vector<engine::ResultSet>& results) {
  const bool onlyRead = session.rowsAffected() < 0 && !results.empty();
  return onlyRead ? results.front().rowsAffected : session.rowsAffected();
}

/// The results before the first error. An error behind a result is told by ADO only when
/// somebody asks for the next result, which the plug-in does not do; one before is thrown.
std::vector<engine::ResultSet> untilFirstError(std::vector<engine::BatchEvent> events) {
  std::vector<engine::ResultSet> results;
  for (auto& event : events) {
    if (const auto* const error = std::get_if<engine::SqlError>(&event)) {
      if (results.empty()) throw engine::SqlError(*error);
      break;
    }
    results.push_back(std::move(std::get<engine::ResultSet>(event)));
  }
  return results;
}

}  // namespace

void AdoConnection::Open() {
  if (session_) throw adoerror::open();
  session_ = std::make_unique<engine::Session>(database_);
}

void AdoConnection::Close() {
  if (!session_) throw adoerror::closed();
  session_.reset();
}

engine::Session& AdoConnection::session() const {
  if (!session_) throw adoerror::badConnection();
  return *session_;
}

std::shared_ptr<AdoConnection> AdoConnection::behind(const Ref<ado::Connection>& connection) {
  auto own = std::dynamic_pointer_cast<AdoConnection>(connection.shared());
  if (!own || !own->isOpen()) throw adoerror::badConnection();
  return own;
}

void AdoConnection::keep(const RuntimeError& error) {
  ado::Error entry{error.number(), error.description(), error.source(), 0, {}};
  if (const auto* sql = dynamic_cast<const engine::SqlError*>(&error)) {
    entry.nativeError = sql->nativeError();
    entry.sqlState = sql->sqlState();
  }
  errors_.push_back(std::move(entry));
}

template <class Work>
void AdoConnection::observed(const std::string& text, bool edit, Work&& work) {
  errors_.clear();
  const bool heard = isObserved();
  std::int64_t rows = 0;
  try {
    if (heard) observer_->before(text, edit);
    rows = work();
  } catch (const RuntimeError& error) {
    keep(error);
    if (heard) observer_->after(text, edit, 0, &error);
    throw;
  }
  if (heard) observer_->after(text, edit, rows, nullptr);
}

std::vector<engine::ResultSet> AdoConnection::run(const std::string& text) {
  engine::Session& current = session();
  std::vector<engine::ResultSet> results;
  observed(text, false, [&] {
    results = untilFirstError(current.run(text));
    return rowsOf(current, results);
  });
  return results;
}

void AdoConnection::run(const ParameterStatement& statement) {
  engine::Session& current = session();
  observed(statement.text, false,
           [&] { return rowsOf(current, current.execute(statement.command, statement.values)); });
}

void AdoConnection::edit(const ParameterStatement& statement) {
  engine::Session& current = session();
  observed(statement.text, true, [&] {
    current.execute(statement.command, statement.values);
    if (current.rowsAffected() != 1) throw adoerror::rowNotFound();
    return current.rowsAffected();
  });
}

Ref<ado::Recordset> AdoConnection::Execute(const std::string& text) {
  if (!session_) throw adoerror::closed();
  return AdoRecordset::ofResults(run(text));
}

void AdoConnection::ExecuteNoRecords(const std::string& text) {
  if (!session_) throw adoerror::closed();
  run(text);
}

}  // namespace kebu::workbench
