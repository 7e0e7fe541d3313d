#include "tests/faults/faulty_run.h"

#include "common/error.h"
#include "tests/support/statement_recorder.h"
#include "tests/support/written_tables.h"
#include "workbench/player/result_text.h"

namespace kebu::tests {

using workbench::queryText;

namespace {

std::string rowText(const std::vector<Value>& row) {
  std::string text;
  for (const Value& value : row) text += '|' + (value.holds<Date>() ? "date" : queryText(value));
  return text;
}

}  // namespace

void FaultyStatements::before(const std::string& text, bool edit) {
  log_.push_back((edit ? "edit: " : "") + withoutWorkingTableDigits(text));
  raise(false);
}

void FaultyStatements::carriedOut(const std::string& /*text*/) {
  raise(true);
}

void FaultyStatements::raise(bool isCarriedOut) const {
  constexpr std::int32_t raisedOnPurpose = 50000;
  for (const Fault& fault : faults_) {
    if (fault.position == log_.size() && fault.isCarriedOut == isCarriedOut) {
      throw engine::SqlError(raisedOnPurpose, description);
    }
  }
}

std::int32_t FaultPlayer::answer(const workbench::ShownMessage& box) {
  if (!workbench::offers(box.style, msgbox::abort)) return Player::answer(box);
  errors_.push_back(box.text);
  if (errors_.size() <= faults_.size()) return faults_[errors_.size() - 1].answer;
  return otherErrors ? otherErrors(box.text) : msgbox::abort;
}

FaultyRun::FaultyRun(const std::shared_ptr<engine::Database>& company, std::int32_t number,
                     const Faults& faults)
    : player_(nowhere_, complaints_, faults),
      statements_(faults),
      workplace_(
          {.user = player_, .database = company, .observer = &statements_, .company = number}) {}

bool FaultyRun::play(const workbench::Scenario& scenario) {
  return player_.play(scenario, workplace_.stage(noFaults_));
}

Lines writtenRows(engine::Session& session) {
  Lines lines;
  for (const std::string table : writtenTables) {
    for (const engine::ResultSet& result : session.execute("SELECT * FROM " + table)) {
      for (const auto& row : result.rows) lines.push_back(table + rowText(row));
    }
  }
  return lines;
}

}  // namespace kebu::tests
