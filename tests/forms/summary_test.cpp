#include "forms/anagrafica/summary/summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "controls/sheet.h"
#include "tests/support/test_user.h"
#include "tests/support/test_workplace.h"
#include "workbench/company/company.h"
#include "workbench/player/model_workplace.h"

namespace kebu::forms {
namespace {

using controls::SheetLine;

std::vector<std::string> readingsOf(const std::vector<SheetLine>& lines) {
  std::vector<std::string> readings;
  for (const SheetLine& line : lines) readings.push_back(controls::readingOf(line));
  return readings;
}

std::vector<std::string> readingsOf(const Summary& summary) {
  return readingsOf(linesOf(summary, [](const std::string& text) { return text; }));
}

bool contains(const std::vector<std::string>& readings, const std::string& wanted) {
  return std::ranges::find(readings, wanted) != readings.end();
}

/// A company about which there is nothing to be said.
Summary flawless() {
  const Summary::Published everything{
      .all = 10, .selected = 10, .listed = 10, .allListed = 10, .isStated = true};
  return {
      .company = "1",
      .readAt = "now",
      .isLinked = true,
      .customers = everything,
      .articles = everything,
      .variantsWithoutPrice = 0,
      .slots =
          std::vector<Summary::Slot>{
              {.number = 1, .isActive = true, .hasSource = true, .source = "S", .articles = 10}},
      .arePricesManaged = true,
      .deposits = std::vector<Summary::Deposit>{{.code = "01", .isPreferred = true}},
      .rules = std::vector<Summary::Rules>{{.listType = 1, .isOnPrice = true, .active = 3}}};
}

TEST(SummaryLines, WhatWasNotReadIsNotKnownAndNeverAFigure) {
  for (const std::string& reading : readingsOf(Summary{.company = "1", .readAt = "now"})) {
    const std::size_t value = reading.find(": ");
    if (value == std::string::npos) continue;
    EXPECT_EQ(reading.find_first_of("0123456789", value), std::string::npos) << reading;
  }
}

TEST(SummaryLines, EveryFlawIsAWarningOfItsOwn) {
  struct Case {
    const char* flaw;
    void (*make)(Summary& summary);
    const char* warning;
  };
  const Case cases[] = {
      {"no key", [](Summary& s) { s.slots->front().isComplete = false; },
       "Prezzo 1: manca la chiave, nessun prezzo pubblicato."},
      {"no source", [](Summary& s) { s.slots->front().hasSource = false; },
       "Prezzo 1: attivi senza tipologia di listino, non pubblicano nulla."},
      {"prices", [](Summary& s) { s.arePricesManaged = false; },
       "I prezzi non sono gestiti: nei parametri non è scelta la gestione prezzi."},
      {"codes",
       [](Summary& s) {
         s.unknownCodes = {"Listino"};
         s.slots->front().isUnknown = true;
         s.deposits->front().isUnknown = true;
       },
       "Codici non trovati: Listino, Prezzo 1, deposito 01"},
      {"e-mail", [](Summary& s) { s.customers.listed = 8; },
       "Clienti selezionati ma senza e-mail: 2"},
      {"variants", [](Summary& s) { s.variantsWithoutPrice = 7; },
       "Varianti senza prezzo in tutti i listini attivi: 7"},
      {"expired", [](Summary& s) { s.rules->front().expired = 2; }, "Regole di sconto scadute: 2"},
      {"unread", [](Summary& s) { s.deposits.reset(); },
       "Quello che non è noto non è stato letto."},
  };
  const std::string none = "Nessun avviso.";
  EXPECT_TRUE(contains(readingsOf(flawless()), none));
  for (const Case& each : cases) {
    SCOPED_TRACE(each.flaw);
    Summary summary = flawless();
    each.make(summary);
    const auto lines = linesOf(summary, [](const std::string& text) { return text; });
    std::vector<std::string> warnings;
    for (const SheetLine& line : lines) {
      if (line.role == SheetLine::Role::Warning) warnings.push_back(line.label);
    }
    EXPECT_EQ(warnings, std::vector<std::string>{each.warning});
    EXPECT_FALSE(contains(readingsOf(lines), none));
  }
}

// ---- reading it

/// Lets the n-th statement fail, and keeps all of them.
class FailingStatement : public workbench::StatementObserver {
 public:
  void before(const std::string& text, bool edit) override {
    statements.push_back(text);
    EXPECT_FALSE(edit) << text;
    if (statements.size() == failing) throw RuntimeError(50000, "made to fail");
  }
  void after(const std::string&, bool, std::int64_t, const RuntimeError*) override {}
  void secondConnection(const std::string& text, const std::string& unread) override {
    ADD_FAILURE() << text << "\nran while rows were unread of\n" << unread;
  }
  bool isListening() const override { return listening; }

  bool listening = false;
  std::size_t failing = 0;  ///< counted from 1; 0 for none
  std::vector<std::string> statements;
};

class SummaryReading : public testing::Test {
 protected:
  SummaryReading() {
    user.answerTo = [this](const workbench::ShownMessage& box) {
      return workbench::offers(box.style, msgbox::abort) ? answer : workbench::wayOut(box.style);
    };
    user.inModalWindow = [this](controls::Form& form) {
      const auto& sheet = dynamic_cast<controls::Sheet&>(*form.find("SHEET_RIEPILOGO"));
      readings = readingsOf(sheet.lines());
      // The time of day is another one each time.
      std::erase_if(readings, [](const std::string& line) { return line.starts_with("Letto: "); });
      workplace.hands().clickButton("CMD_CHIUDI");
    };
    // A few articles tell as much as many.
    workplace.session().execute("DELETE FROM MG87_ARTDESC WHERE MG87_CODART_MG66 >= 'B'");
    workplace.host().open();
  }
  ~SummaryReading() override { workplace.host().close(); }

  void openSummary(std::size_t failing = 0) {
    statements.statements.clear();
    statements.failing = failing;
    statements.listening = true;
    workplace.hands().clickButton("BTN_RIEPILOGO");
    statements.listening = false;
  }

  tests::TestUser user;
  FailingStatement statements;
  workbench::ModelWorkplace workplace{
      {.user = user, .database = workbench::demoCompany(), .observer = &statements}};
  std::int32_t answer = msgbox::abort;
  std::vector<std::string> readings;
};

TEST_F(SummaryReading, RunsQueriesOnly) {
  openSummary();
  EXPECT_GT(statements.statements.size(), 10U);
  for (const std::string& statement : statements.statements) {
    const std::size_t start = statement.find_first_not_of(" \r\n");
    const bool isQuery = statement.compare(start, 6, "SELECT") == 0 ||
                         statement.compare(start, 16, "IF EXISTS(select") == 0;
    EXPECT_TRUE(isQuery) << statement;
    EXPECT_EQ(statement.find("into"), std::string::npos) << statement;
  }
}

// Whichever statement fails: a line says what it says otherwise, or that something is not known.
TEST_F(SummaryReading, AFailingStatementLeavesItsPartUnknown) {
  openSummary();
  const std::vector<std::string> all = readings;
  const std::size_t count = statements.statements.size();
  for (const std::int32_t each : {msgbox::ignore, msgbox::abort, msgbox::retry}) {
    answer = each;
    for (std::size_t failing = 1; failing <= count; ++failing) {
      user.boxes.clear();
      openSummary(failing);
      SCOPED_TRACE(std::to_string(each) + ": " + statements.statements[failing - 1]);
      EXPECT_EQ(user.boxes.size(), 1U);
      if (each == msgbox::retry) {
        EXPECT_EQ(readings, all);
        continue;
      }
      EXPECT_TRUE(contains(readings, "Quello che non è noto non è stato letto."));
      for (const std::string& reading : readings) {
        const bool isUnknown = reading.find("non noto") != std::string::npos ||
                               reading.find("non è noto") != std::string::npos;
        EXPECT_TRUE(isUnknown || contains(all, reading)) << reading;
      }
    }
  }
}

TEST(SummaryWindow, TracesItsBeginningAndItsEnd) {
  tests::TestWorkplace workplace;
  workplace.user().inModalWindow = [&](controls::Form&) {
    workplace.hands().clickButton("CMD_CHIUDI");
  };
  workplace.open();
  workplace.hands().clickButton("BTN_RIEPILOGO");
  workplace.close();
  for (const std::string event : {"INI", "TER"}) {
    EXPECT_NE(workplace.trace().find('|' + event + "|KEBU_ANAGRAFICA|FRMKB_RIEPILOGO"),
              std::string::npos)
        << workplace.trace();
  }
}

}  // namespace
}  // namespace kebu::forms
