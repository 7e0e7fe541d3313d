#include "tests/faults/performance.h"

#include "common/error.h"
#include "plugin/clskb_anagkelmoria.h"
#include "workbench/player/result_text.h"

namespace kebu::workbench {

namespace {

constexpr const char* writtenTables[] = {
    "GM03_DISPOSITIVI", "GM04_PARAMETRITVRO", "GM08_ATTIVITADISPO",   "GM13_TIPISINCRO",
    "GM56_KBDEPOSITI",  "GM57_KBLISTINI",     "GM61_KBDISCOUNTRULES", "FW01_JOB",
};

/// Working tables are called differently in every run.
std::string withoutTableNames(std::string text) {
  constexpr std::size_t identifier = 32;
  for (const std::string prefix : {"##tempT", "##tempPrezzo", "##tempGriglia"}) {
    for (std::size_t at = 0; (at = text.find(prefix, at)) != std::string::npos;) {
      at += prefix.size();
      text.erase(at, identifier);
    }
  }
  return text;
}

std::string rowText(const std::vector<Value>& row) {
  std::string text;
  for (const Value& value : row) text += '|' + (value.holds<Date>() ? "date" : queryText(value));
  return text;
}

}  // namespace

void FaultyStatement::before(const std::string& text, bool edit) {
  log_.push_back((edit ? "edit: " : "") + withoutTableNames(text));
  if (log_.size() != position_) return;
  constexpr std::int32_t raisedOnPurpose = 50000;
  throw engine::SqlError(raisedOnPurpose, description);
}

std::int32_t FaultPlayer::answer(const ShownMessage& box) {
  if (!offers(box.style, msgbox::abort)) return Player::answer(box);
  errors_.push_back(box.text);
  return errors_.size() == 1 ? answer_ : msgbox::abort;
}

Performance::Performance(const engine::Database& company, std::int32_t number, std::size_t position,
                         msgbox::Answer answer)
    : database_(company.clone()),
      player_(nowhere_, complaints_, answer),
      statement_(position),
      platform_(player_, nowhere_),
      desktop_(player_),
      hands_(desktop_),
      session_(database_),
      host_(
          [this] {
            return plugin::CLSKB_ANAGKELMORIA::create({platform_, library_, desktop_});
          },
          {player_, embeddedCompany(database_, &statement_), number, {}, [](const std::string&) {
           }}) {}

bool Performance::play(const Scenario& scenario) {
  return player_.play(scenario, {host_, hands_, session_, noFaults_});
}

Lines Performance::rows() {
  Lines lines;
  for (const std::string table : writtenTables) {
    for (const engine::ResultSet& result : session_.execute("SELECT * FROM " + table)) {
      for (const auto& row : result.rows) lines.push_back(table + rowText(row));
    }
  }
  return lines;
}

}  // namespace kebu::workbench
