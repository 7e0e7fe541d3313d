#include "workbench/ado/statement_faults.h"

#include <algorithm>

#include "workbench/engine/values/sql_error.h"

namespace kebu::workbench {

namespace {

constexpr std::int32_t userError = 50000;  // the number of RAISERROR with a text

}  // namespace

std::optional<StatementFaults::Plan> StatementFaults::take(Kind kind,
                                                           const std::string& statement) {
  const auto due = std::find_if(plans_.begin(), plans_.end(), [&](const Plan& plan) {
    return plan.kind == kind && statement.find(plan.text) != std::string::npos;
  });
  if (due == plans_.end()) return std::nullopt;
  const Plan taken = *due;
  if (--due->left == 0) plans_.erase(due);
  return taken;
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
  const auto fault = take(Kind::Fails, statement);
  if (!fault) return;
  throw engine::SqlError(userError,
                         "The statement was made to fail: it contains \"" + fault->text + "\".");
}

void StatementFaults::raiseAfter(const std::string& statement) {
  const auto fault = take(Kind::LosesAnswer, statement);
  if (!fault) return;
  throw engine::SqlError(
      userError,
      "The answer was lost: the statement was carried out, it contains \"" + fault->text + "\".");
}

void StatementFaults::noteSecondConnection(const std::string& statement,
                                           const std::string& unread) {
  notes_.push_back("\"" + statement + "\" runs while rows of \"" + unread + "\" are unread");
}

std::int32_t StatementFaults::secondsOf(const std::string& statement) {
  const auto slow = take(Kind::IsSlow, statement);
  return slow ? slow->seconds : 0;
}

bool StatementFaults::isInterrupted(const std::string& statement) {
  const auto interruption = take(Kind::IsInterrupted, statement);
  if (interruption) interruption->gesture();
  return interruption.has_value();
}

}  // namespace kebu::workbench
