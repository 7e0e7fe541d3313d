#include "workbench/ado/ado_connection.h"

#include <chrono>
#include <optional>
#include <thread>
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

/// The results before the first error, and that error. ADO tells one behind a result only when
/// somebody asks for the next result, which the plug-in does not do.
struct Outcome {
  std::vector<engine::ResultSet> results;
  std::optional<engine::SqlError> error;
};

Outcome untilFirstError(std::vector<engine::BatchEvent> events) {
  Outcome outcome;
  for (auto& event : events) {
    if (auto* const error = std::get_if<engine::SqlError>(&event)) {
      outcome.error = std::move(*error);
      break;
    }
    outcome.results.push_back(std::move(std::get<engine::ResultSet>(event)));
  }
  return outcome;
}

}  // namespace

void AdoConnection::Open() {
  if (isOpen()) throw adoerror::open();
  errors_.clear();
  try {
    if (observer_ != nullptr) observer_->opening();
  } catch (const RuntimeError& error) {
    keep(error);
    throw;
  }
  outagesBefore_ = observer_ != nullptr ? observer_->outages() : 0;
  session_ = std::make_unique<engine::Session>(database_);
}

void AdoConnection::Close() {
  if (!isOpen()) throw adoerror::closed();
  lost_ = false;
  session_.reset();
}

void AdoConnection::requireServer() {
  if (observer_ == nullptr || observer_->outages() == outagesBefore_) return;
  // The server ends the session, and with it the session's temporary tables.
  session_.reset();
  lost_ = true;
  throw adoerror::connectionLost();
}

engine::Session& AdoConnection::session() {
  if (lost_) {
    errors_.clear();  // of the call before
    keep(adoerror::connectionLost());
    throw adoerror::connectionLost();
  }
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
  if (const auto* const own = dynamic_cast<const engine::ProviderError*>(&error)) {
    entry.nativeError = own->nativeError();
    entry.sqlState = own->sqlState();
  }
  errors_.push_back(std::move(entry));
}

/// `work` gives the rows and the error that its results hide, if any.
template <class Work>
void AdoConnection::observed(const std::string& text, bool edit, std::int32_t timeout,
                             Work&& work) {
  errors_.clear();
  if (!asynchronous_) cancelled_ = false;  // a cancellation that came too late
  const bool heard = observer_ != nullptr && observer_->isListening();
  if (heard) {
    const auto unread = unread_.lock();
    if (unread && !unread->atEnd) observer_->secondConnection(text, unread->source);
  }
  try {
    if (heard) observer_->before(text, edit);
    requireServer();
    const std::int32_t seconds = heard ? observer_->secondsOf(text) : 0;
    if (timeout != 0 && seconds > timeout) throw adoerror::timeout();
    if (heard && observer_->isInterrupted(text)) awaitCancel();
    const auto [rows, hidden] = work();
    if (heard && !hidden) observer_->carriedOut(text);
    if (heard) observer_->after(text, edit, rows, hidden ? &*hidden : nullptr);
  } catch (const RuntimeError& caught) {
    if (!cancelled_.exchange(false)) {
      keep(caught);
      if (heard) observer_->after(text, edit, 0, &caught);
      throw;
    }
    const RuntimeError cancelled = RuntimeError::cancelled();
    keep(cancelled);
    if (heard) observer_->after(text, edit, 0, &cancelled);
    throw RuntimeError(cancelled);
  }
}

void AdoConnection::cancel() {
  cancelled_ = true;
  if (session_) session_->interrupt();
}

void AdoConnection::setAsynchronous(bool asynchronous) {
  asynchronous_ = asynchronous;
  cancelled_ = false;
}

void AdoConnection::awaitCancel() {
  constexpr int most = 300;
  constexpr std::chrono::milliseconds pause(10);
  for (int i = 0; i < most && (goOn_ || asynchronous_); ++i) {
    if (goOn_ && !goOn_()) cancelled_ = true;
    if (cancelled_) throw RuntimeError::cancelled();
    if (asynchronous_) std::this_thread::sleep_for(pause);
  }
}

std::vector<engine::ResultSet> AdoConnection::run(const std::string& text, std::int32_t timeout) {
  if (!isOpen()) throw adoerror::badConnection();
  Outcome outcome;
  observed(text, false, timeout, [&] {
    engine::Session& current = session();
    outcome = untilFirstError(current.run(text));
    if (outcome.results.empty() && outcome.error) throw engine::SqlError(*outcome.error);
    return std::pair(rowsOf(current, outcome.results), outcome.error);
  });
  return std::move(outcome.results);
}

void AdoConnection::edit(const std::string& statement) {
  if (!isOpen()) throw adoerror::badConnection();
  observed(statement, true, commandTimeout_, [&] {
    engine::Session& current = session();
    current.execute(statement);
    if (current.rowsAffected() < 1) throw adoerror::rowNotFound();
    if (current.rowsAffected() > 1) throw adoerror::tooManyRows();
    return std::pair(current.rowsAffected(), std::optional<engine::SqlError>());
  });
}

Ref<ado::Recordset> AdoConnection::Execute(const std::string& text) {
  if (!isOpen()) throw adoerror::closed();
  return AdoRecordset::ofResults(*this, text, run(text));
}

void AdoConnection::ExecuteNoRecords(const std::string& text) {
  if (!isOpen()) throw adoerror::closed();
  run(text);
}

}  // namespace kebu::workbench
