#include "workbench/ado/statement_faults.h"

#include <algorithm>

#include "workbench/engine/values/sql_error.h"

namespace kebu::workbench {

namespace {

constexpr std::int32_t userError = 50000;  // the number of RAISERROR with a text

}  // namespace

std::optional<std::string> StatementFaults::take(std::vector<Fault>& faults,
                                                 const std::string& statement) {
  const auto due = std::find_if(faults.begin(), faults.end(), [&](const Fault& fault) {
    return statement.find(fault.text) != std::string::npos;
  });
  if (due == faults.end()) return std::nullopt;
  std::string text = due->text;
  if (--due->left == 0) faults.erase(due);
  return text;
}

void StatementFaults::stopServer(const std::string& text) {
  if (!text.empty()) {
    stopsServer_ = text;
    return;
  }
  stopsServer_.reset();
  away_ = true;
  ++outages_;
}

void StatementFaults::startServer() {
  stopsServer_.reset();
  away_ = false;
}

void StatementFaults::raiseFor(const std::string& statement) {
  if (stopsServer_ && statement.find(*stopsServer_) != std::string::npos) stopServer();
  const auto text = take(faults_, statement);
  if (!text) return;
  throw engine::SqlError(userError,
                         "The statement was made to fail: it contains \"" + *text + "\".");
}

void StatementFaults::raiseAfter(const std::string& statement) {
  const auto text = take(lost_, statement);
  if (!text) return;
  throw engine::SqlError(
      userError,
      "The answer was lost: the statement was carried out, it contains \"" + *text + "\".");
}

void StatementFaults::noteSecondConnection(const std::string& statement,
                                           const std::string& unread) {
  notes_.push_back("\"" + statement + "\" runs while rows of \"" + unread + "\" are unread");
}

std::int32_t StatementFaults::secondsOf(const std::string& statement) {
  const auto due = std::find_if(slow_.begin(), slow_.end(), [&](const Slow& slow) {
    return statement.find(slow.text) != std::string::npos;
  });
  if (due == slow_.end()) return 0;
  const std::int32_t seconds = due->seconds;
  slow_.erase(due);
  return seconds;
}

bool StatementFaults::isInterrupted(const std::string& statement) {
  const auto due = std::find_if(interruptions_.begin(), interruptions_.end(),
                                [&](const Interruption& interruption) {
                                  return statement.find(interruption.text) != std::string::npos;
                                });
  if (due == interruptions_.end()) return false;
  const std::function<void()> gesture = std::move(due->gesture);
  interruptions_.erase(due);
  gesture();
  return true;
}

}  // namespace kebu::workbench
