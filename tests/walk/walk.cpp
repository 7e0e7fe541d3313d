#include "tests/walk/walk.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <ostream>
#include <regex>
#include <utility>

#include "common/convert.h"
#include "controls/visit.h"
#include "forms/anagrafica/frame/pages.h"
#include "tests/support/statement_recorder.h"
#include "tests/support/written_tables.h"
#include "tests/walk/shown_page.h"
#include "workbench/ado/ado_error.h"
#include "workbench/ado/statement_faults.h"
#include "workbench/engine/sqlite.h"
#include "workbench/player/model_workplace.h"

namespace kebu::tests {

using controls::Form;
using workbench::ModelWorkplace;
using workbench::Words;

namespace {

/// What belongs to somebody else and must stay: the other application's profile, and the other
/// company's rules. Saved price lists switch off incomplete slots of every profile, on purpose.
constexpr const char* foreignRows[] = {
    "SELECT * FROM GM03_DISPOSITIVI WHERE NOT (GM03_IDAPPLICAZIONE = 14 AND GM03_DITTA_CG18 = 1)",
    "SELECT * FROM GM02_ATTIVITADITTA WHERE GM02_DITTA_CG18 <> 1 OR GM02_IDAPPLICAZIONE_GM01 <> 14",
    "SELECT * FROM GM04_PARAMETRITVRO WHERE GM04_IDDISPOSITIVO_GM03 = 1",
    "SELECT * FROM GM08_ATTIVITADISPO WHERE GM08_IDDISPOSITIVO_GM03 = 1",
    "SELECT * FROM GM19_DETTCONF WHERE GM19_IDDISPOSITIVO_GM03 = 1",
    "SELECT * FROM GM56_KBDEPOSITI WHERE GM56_IDDISPOSITIVO_GM03 = 1",
    "SELECT GM57_CODPREZZO, GM57_INDTIPO, GM57_NUMLIST_LI10, GM57_CATEGORIA, "
    "GM57_DEPGIACENZE_MG58, "
    "GM57_QUANTITA, GM57_FLGINCLUDISCONTI, GM57_CLIFOR_CG44, CASE WHEN GM57_INDTIPO = 6 AND "
    "ISNULL(GM57_CLIFOR_CG44, 0) = 0 THEN 0 ELSE GM57_FLGATTIVO END AS ATTIVO "
    "FROM GM57_KBLISTINI WHERE GM57_IDDISPOSITIVO_GM03 = 1",
    "SELECT * FROM GM61_KBDISCOUNTRULES WHERE GM61_DITTA_CG18 <> 1",
};

/// The tables that only a save, a deletion or a new profile may write.
constexpr const char* profileTables[] = {"GM03_DISPOSITIVI", "GM04_PARAMETRITVRO",
                                         "GM56_KBDEPOSITI"};

/// The pages that the profile's bar saves, and those of the categories' bar.
constexpr const char* profilePages[] = {"GRPMAIN_PAR", "GRPMAIN_LISTINI", "GRPMAIN_GIACENZE",
                                        "GRPMAIN_FILTROART", "GRPMAIN_FILTROCLI"};
constexpr const char* categoryPages[] = {"GRPMAIN_CATCLIENTI", "GRPMAIN_CATART"};

constexpr const char* discountsPage = "GRPMAIN_SCONTI";
constexpr const char* listTypes = "CMB_LISTINISCONTO";

/// The list type whose discounts a window shows; "" in a window without discounts.
std::string listTypeIn(Form& form) {
  controls::Control* const combo = form.find(listTypes);
  return combo ? controls::as<controls::ComboBox>(*combo)->text() : "";
}

/// The check box and the grid of each mode of discounts.
constexpr std::pair<const char*, const char*> discountModes[] = {
    {"CHK_SCONTOPREZZOART", "QGRID_SCONTOSUPREZZO"},
    {"CHK_GRIGLIASCONTI", "QGRID_SCONTOSUGRIGLIA"}};

bool isTicked(Form& form, const char* check) {
  return controls::as<controls::CheckBox>(*form.find(check))->isTicked();
}

/// The ticked rules of a mode, by what a rule keeps; none of a mode that is switched off.
std::vector<std::string> tickedRules(Form& form, const char* check, const char* name) {
  std::vector<std::string> lines;
  if (!isTicked(form, check)) return lines;
  auto& grid = *controls::as<controls::QueryGrid>(*form.find(name));
  for (std::int32_t row = 1; row <= grid.rowCount(); ++row) {
    if (toDisplay(grid.cell(row, "GM61_ATTIVA")) != "1") continue;
    std::string line = name;
    for (const char* const field : {"GM61_NOMEREGOLA", "GM61_CAMPOCORVANE", "GM61_POSIZIONE"}) {
      line += ' ' + trimRight(toDisplay(grid.cell(row, field))) + ';';
    }
    lines.push_back(line);
  }
  std::ranges::sort(lines);
  return lines;
}

/// What the page of discounts shows. Discount grids that are proposed are numbered behind the last
/// proposals on price of the same window, so that their numbers differ from those of another one.
std::vector<std::string> shownDiscounts(Form& form) {
  static const std::regex number(" - [0-9]+;");
  std::vector<std::string> lines = shownIn(*form.find(discountsPage));
  for (std::string& line : lines) {
    if (line.starts_with("QGRID_SCONTOSUGRIGLIA")) line = std::regex_replace(line, number, ";");
  }
  return lines;
}

using Rows = std::vector<std::vector<std::string>>;  // of each query

/// What must be after a walk as it was before.
struct Protected {
  std::map<std::string, std::size_t> tables;  ///< their rows as a hash; without the written ones
  Rows foreign;
};

std::size_t hashOf(sqlite3* database, const std::string& query,
                   const std::function<void(const std::string& firstColumn)>& row = nullptr) {
  sqlite3_stmt* made = nullptr;
  constexpr int toItsEnd = -1;
  sqlite3_prepare_v2(database, query.c_str(), toItsEnd, &made, nullptr);
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(made, sqlite3_finalize);
  std::size_t hash = 0;
  while (sqlite3_step(made) == SQLITE_ROW) {
    for (int i = 0; i < sqlite3_column_count(made); ++i) {
      const auto* const text = static_cast<const char*>(sqlite3_column_blob(made, i));
      const std::string value(text ? text : "",
                              static_cast<std::size_t>(sqlite3_column_bytes(made, i)));
      hash = hash * 31 + std::hash<std::string>()(value);
      if (i == 0 && row) row(value);
    }
  }
  return hash;
}

Protected protectedRows(engine::Session& session) {
  Protected found;
  sqlite3* const database = session.database().handle();
  hashOf(database, "SELECT name FROM sqlite_master WHERE type = 'table'",
         [&](const std::string& table) {
           if (std::ranges::find(writtenTables, table) != std::end(writtenTables)) return;
           if (table.starts_with("sqlite_")) return;
           found.tables[table] = hashOf(database, "SELECT * FROM \"" + table + '"');
         });
  for (const char* query : foreignRows) {
    auto& rows = found.foreign.emplace_back();
    for (const engine::ResultSet& result : session.execute(query)) {
      for (const auto& row : result.rows) {
        std::string text;
        for (const Value& value : row) text += toDisplay(value) + '|';
        rows.push_back(text);
      }
    }
  }
  return found;
}

/// The button of somebody who wants to leave: nothing is saved, what fails is left.
msgbox::Answer leaving(const workbench::ShownMessage& box) {
  if (workbench::offers(box.style, msgbox::no)) return msgbox::no;
  if (workbench::offers(box.style, msgbox::abort)) return msgbox::abort;
  return workbench::wayOut(box.style);
}

/// Plays the steps of a source and watches what the plug-in does.
class Walker : public workbench::Player, public workbench::StatementObserver {
 public:
  Walker(const WalkGround& ground, GestureSource& source)
      : Player(nowhere_, nowhere_),
        ground_(ground),
        source_(source),
        workplace_({.user = *this, .database = ground.company.clone(), .observer = this}) {}

  WalkOutcome run();

  // The user.
  std::int32_t answer(const workbench::ShownMessage& box) override;
  void chooseFrom(workbench::ShownList& list) override;

  // The observer of statements.
  void before(const std::string& text, bool edit) override;
  void carriedOut(const std::string& text) override { faults_.raiseAfter(text); }
  void opening() override {
    if (faults_.isServerAway()) throw workbench::adoerror::noServer();
  }
  int outages() const override { return faults_.outages(); }
  void after(const std::string&, bool, std::int64_t, const RuntimeError*) override {}
  void secondConnection(const std::string& text, const std::string& unread) override {
    broken("a statement runs while rows of another are unread: " + shapeOf(text) + " | " +
           shapeOf(unread));
  }

 protected:
  const workbench::ScenarioLine* nextLine() override;
  void lineFailed(const std::exception& error) override;

 private:
  void broken(const std::string& rule) {
    if (!outcome_.broken) outcome_.broken = rule;
  }
  void closeWindows();
  std::optional<Words> nextWords();
  bool isSaving() const;
  void checkLastStep();
  void compareWithFresh(std::span<const char* const> pages);
  void checkDiscounts(const Words& words);
  void compareDiscounts(bool afterSaving);
  /// Has a fresh window, in front meanwhile, looked at beside the current one.
  void besideFresh(const std::function<void(Form& form, Form& fresh)>& look);
  void checkDatabase();

  std::ostream nowhere_{nullptr};
  const WalkGround& ground_;
  GestureSource& source_;
  workbench::StatementFaults faults_;
  WalkOutcome outcome_;
  std::deque<workbench::ScenarioLine> lines_;  ///< nested steps use several at a time
  std::deque<std::string> statements_;         ///< the last ones
  bool checked_ = true;                        ///< the last step
  std::string listTypeBefore_;                 ///< that of the discounts, before the last step
  bool troubled_ = false;  ///< there were errors or other windows: pages may differ from the tables
  /// How often a lost connection may still be told in the current step, by a box that is not
  /// answered with Retry: once for each gesture of the step.
  std::size_t lossesToTell_ = 0;
  bool closing_ = false;
  int dialogsClosed_ = 0;
  ModelWorkplace workplace_;
};

/// How many gestures a step is: a condition's operator and its values are chosen one after the
/// other.
std::size_t gesturesOf(const Words& words) {
  constexpr std::size_t before = 3;
  return words.front() == "condition" ? words.size() - before : 1;
}

std::int32_t Walker::answer(const workbench::ShownMessage& box) {
  if (workbench::offers(box.style, msgbox::abort)) troubled_ = true;
  if (closing_) {
    const msgbox::Answer answer = leaving(box);
    if (!outcome_.closing.empty()) outcome_.closing.back().answers.push_back(answer);
    return answer;
  }
  const msgbox::Answer answer = source_.answer(box);
  if (box.text.find("\r\n[DBNETLIB]") != std::string::npos) {
    if (lossesToTell_ == 0) broken("a lost connection was told twice in a gesture: " + box.text);
    if (answer != msgbox::retry && lossesToTell_ > 0) --lossesToTell_;
  }
  if (!outcome_.steps.empty()) outcome_.steps.back().answers.push_back(answer);
  return answer;
}

void Walker::chooseFrom(workbench::ShownList& list) {
  const auto row = source_.row(list.rowCount());
  if (!row || *row > list.rowCount()) return;
  outcome_.steps.back().words.push_back(std::to_string(*row));
  list.choose(*row);
}

bool Walker::isSaving() const {
  if (outcome_.steps.empty()) return false;
  const WalkStep& step = outcome_.steps.back();
  const auto said = [&](msgbox::Answer answer) {
    return std::find(step.answers.begin(), step.answers.end(), answer) != step.answers.end();
  };
  return step.words.front() == "press" || said(msgbox::yes);
}

void Walker::before(const std::string& text, bool edit) {
  ++outcome_.statements;
  constexpr std::size_t kept = 40;
  statements_.push_back(text);
  if (statements_.size() > kept) statements_.pop_front();
  if (!ground_.shapes.know(text, edit)) broken("a statement of no known shape: " + shapeOf(text));
  if (closing_ || !isSaving()) {
    for (const std::string table : profileTables) {
      const bool writes = edit ? text.find('[' + table + ']') != std::string::npos
                               : text.find("MERGE " + table) != std::string::npos ||
                                     text.find("DELETE FROM " + table) != std::string::npos;
      if (writes) broken(table + " was written although nobody saved");
    }
  }
  if (!closing_) faults_.raiseFor(text);
}

std::optional<Words> Walker::nextWords() {
  const ModelWorkplace& at = workplace_;
  Form* const front = at.desktop().front();
  if (!outcome_.broken) {
    if (auto words = source_.next({front, workplace_.host().isOpen(), statements_})) return words;
  }
  // A dialog that is still open when the walk ends is left.
  constexpr int enough = 10;
  if (front && !front->isNamed("FRMKB_ANAGRAFICA") && ++dialogsClosed_ <= enough) {
    return Words{"keys", "Esc"};
  }
  return std::nullopt;
}

const workbench::ScenarioLine* Walker::nextLine() {
  checkLastStep();
  const auto words = nextWords();
  if (!words) return nullptr;
  static const std::string disturbing[] = {"fail", "lose",   "without", "refuse",
                                           "set",  "window", "server"};
  if (std::ranges::find(disturbing, words->front()) != std::end(disturbing)) troubled_ = true;
  outcome_.steps.push_back({*words});
  checked_ = false;
  if (Form* const front = workplace_.desktop().front()) listTypeBefore_ = listTypeIn(*front);
  lossesToTell_ = gesturesOf(*words);
  lines_.push_back({static_cast<int>(lines_.size()) + 1, words->front(), *words});
  return &lines_.back();
}

void Walker::lineFailed(const std::exception& error) {
  if (const auto* const raised = dynamic_cast<const RuntimeError*>(&error)) {
    broken("error " + std::to_string(raised->number()) +
           " left the plug-in: " + raised->description());
    return;
  }
  const bool refused = dynamic_cast<const controls::GestureRefused*>(&error) != nullptr;
  // A step that names what is not there is no gesture at all.
  const bool impossible = dynamic_cast<const workbench::StepError*>(&error) != nullptr;
  if (!refused && !impossible)
    broken(std::string("an exception left the plug-in: ") + error.what());
  outcome_.steps.back().refused = true;
}

void Walker::checkLastStep() {
  if (std::exchange(checked_, true) || troubled_ || outcome_.steps.back().refused) return;
  const Words& words = outcome_.steps.back().words;
  checkDiscounts(words);
  if (words.front() != "press" || (words[2] != "Annulla" && words[2] != "Conferma")) return;
  Form* const front = workplace_.desktop().front();
  if (!front || !workplace_.host().isOpen()) return;
  const auto* const frame = controls::as<controls::RecordFrame>(*front->find("FME_ANAGRAFICA"));
  if (!frame->hasRecord() || frame->status() != controls::FrameStatus::Browsing) return;
  if (words[1] == "INAV_PAR") {
    compareWithFresh(profilePages);
  } else {
    compareWithFresh(categoryPages);
  }
}

void Walker::besideFresh(const std::function<void(Form& form, Form& fresh)>& look) {
  ++outcome_.comparisons;
  // In the same host, which keeps the saved filters.
  workbench::StandInHost& host = workplace_.host();
  const std::int32_t window = host.window();
  Form& form = *workplace_.desktop().front();
  constexpr std::int32_t freshWindow = 3;
  closing_ = true;
  host.use(freshWindow);
  host.open();
  look(form, *workplace_.desktop().front());
  if (!host.close()) broken("a fresh window cannot be closed");
  host.use(window);
  closing_ = false;
}

void Walker::compareWithFresh(std::span<const char* const> pages) {
  besideFresh([&](Form& form, Form& fresh) {
    for (const char* const page : pages) {
      const std::string difference =
          firstDifference(shownIn(*form.find(page)), shownIn(*fresh.find(page)));
      if (!difference.empty()) {
        broken("after \"" + outcome_.steps.back().words[2] +
               "\" the page differs from a fresh one: " + difference);
      }
    }
  });
}

// Changes of rules are undone by choosing another list type, which reads the page again.
void Walker::checkDiscounts(const Words& words) {
  Form* const front = workplace_.desktop().front();
  if (!front || !workplace_.host().isOpen() || !front->isNamed("FRMKB_ANAGRAFICA")) return;
  const std::string now = listTypeIn(*front);
  if (words.front() == "choose" && words[1] == listTypes && now != listTypeBefore_) {
    compareDiscounts(false);
  }
  if (front->find(discountsPage)->isReachable() && now != "0" && words.front() == "press" &&
      words[2] == "Conferma") {
    compareDiscounts(true);
  }
}

void Walker::compareDiscounts(bool afterSaving) {
  besideFresh([&](Form& form, Form& fresh) {
    workplace_.hands().openPage(forms::DiscountsPage::view);
    workplace_.hands().choose(listTypes, listTypeIn(form));
    const char* const what = afterSaving
                                 ? "the rules that were saved differ from those of a fresh page: "
                                 : "the page of discounts differs from a fresh one: ";
    const auto compare = [&](const auto& linesOf) {
      const std::string difference = firstDifference(linesOf(form), linesOf(fresh));
      if (!difference.empty()) broken(what + difference);
    };
    if (!afterSaving) {
      compare(shownDiscounts);
      return;
    }
    for (const auto& [check, grid] : discountModes) {
      // The rules of a mode that is switched off are not saved.
      if (isTicked(form, check)) {
        compare([&](Form& window) { return tickedRules(window, check, grid); });
      }
    }
  });
}

void Walker::closeWindows() {
  closing_ = true;
  faults_ = {};
  for (const std::int32_t window : {1, 2}) {
    workplace_.host().use(window);
    outcome_.closing.push_back({{"window", std::to_string(window)}});
    constexpr int attempts = 3;  // the script may refuse the first
    for (int i = 0; i < attempts && workplace_.host().isOpen(); ++i) {
      outcome_.closing.push_back({{"close"}});
      workplace_.host().close();
    }
    if (workplace_.host().isOpen()) broken("the window cannot be closed");
  }
}

void Walker::checkDatabase() {
  static const Protected expected = [this] {
    engine::Session session(ground_.company.clone());
    return protectedRows(session);
  }();
  const Protected found = protectedRows(workplace_.session());
  for (const auto& [table, hash] : expected.tables) {
    const auto at = found.tables.find(table);
    if (at == found.tables.end() || at->second != hash) {
      broken("a table of the ERP was changed: " + table);
    }
  }
  if (found.tables.size() != expected.tables.size()) broken("there is another table");
  for (std::size_t i = 0; i < expected.foreign.size(); ++i) {
    const std::string difference = firstDifference(expected.foreign[i], found.foreign[i]);
    if (!difference.empty()) broken("a row of somebody else's was changed: " + difference);
  }
  engine::Database& database = *workplace_.database();
  const int sessions = database.newSessionId();
  for (int session = 1; session <= sessions; ++session) {
    if (!database.catalogue().temporariesOf(session).empty()) broken("a working table was left");
  }
}

WalkOutcome Walker::run() {
  play(workbench::Scenario::parse("walk", ""), workplace_.stage(faults_));
  checkLastStep();
  try {
    closeWindows();
    checkDatabase();
  } catch (const std::exception& error) {
    broken(std::string("an exception while closing: ") + error.what());
  }
  return std::move(outcome_);
}

/// The steps of an earlier walk.
class RecordedUser : public GestureSource {
 public:
  explicit RecordedUser(const std::deque<WalkStep>& steps) : steps_(steps) {}

  std::optional<Words> next(const Moment&) override {
    if (next_ == steps_.size()) return std::nullopt;
    const WalkStep& step = steps_[next_++];
    answers_ = {step.answers.begin(), step.answers.end()};
    Words words = step.words;
    row_.reset();
    // The row of a look-up is chosen when the list is open.
    const bool isOpened = words.front() == "lookup" && (words.size() == 3 || words.size() == 5);
    if (isOpened) {
      row_ = std::stoi(words.back());
      words.pop_back();
    }
    return words;
  }
  msgbox::Answer answer(const workbench::ShownMessage& box) override {
    if (answers_.empty()) return workbench::wayOut(box.style);
    const msgbox::Answer answer = answers_.front();
    answers_.pop_front();
    return workbench::offers(box.style, answer) ? answer : workbench::wayOut(box.style);
  }
  std::optional<std::int32_t> row(std::int32_t /*rows*/) override { return row_; }

 private:
  const std::deque<WalkStep>& steps_;
  std::size_t next_ = 0;
  std::deque<msgbox::Answer> answers_;
  std::optional<std::int32_t> row_;
};

/// The rule without what is found out about it, which may change when steps are left out.
std::string ruleOf(const WalkOutcome& outcome) {
  return outcome.broken ? outcome.broken->substr(0, outcome.broken->find(':')) : "";
}

}  // namespace

WalkOutcome walk(const WalkGround& ground, GestureSource& source) {
  return Walker(ground, source).run();
}

WalkOutcome walkAgain(const WalkGround& ground, const std::deque<WalkStep>& steps) {
  RecordedUser user(steps);
  return walk(ground, user);
}

WalkOutcome shortened(const WalkGround& ground, WalkOutcome broken) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  const std::string rule = ruleOf(broken);
  for (std::size_t size = broken.steps.size() / 2; size > 0; size /= 2) {
    for (std::size_t from = 0; from < broken.steps.size();) {
      if (std::chrono::steady_clock::now() > end) return broken;
      std::deque<WalkStep> fewer = broken.steps;
      const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(from);
      fewer.erase(first, first + static_cast<std::ptrdiff_t>(std::min(size, fewer.size() - from)));
      WalkOutcome tried = walkAgain(ground, fewer);
      if (ruleOf(tried) == rule && tried.steps.size() < broken.steps.size()) {
        broken = std::move(tried);
      } else {
        from += size;
      }
    }
  }
  return broken;
}

}  // namespace kebu::tests
