// The discount page as a user works it, on the demo company.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "common/convert.h"
#include "common/nulls.h"
#include "controls/query_grid.h"
#include "tests/discounts/expected_candidates.h"
#include "tests/support/statement_recorder.h"
#include "workbench/company/company.h"
#include "workbench/player/model_workplace.h"

namespace kebu::workbench {
namespace {

class DiscountPageTest : public testing::Test {
 protected:
  /// Plays the lines; the test fails with what the player complains of.
  void play(const std::string& lines) {
    const bool played = player_.play(Scenario::parse("lines", lines), workplace_.stage(noFaults_));
    EXPECT_TRUE(played) << complaints_.str();
  }
  std::vector<std::vector<std::string>> rows(const std::string& statement) {
    const engine::ResultSet result = workplace_.session().execute(statement).front();
    std::vector<std::vector<std::string>> texts;
    for (const auto& row : result.rows) {
      auto& line = texts.emplace_back();
      for (const Value& value : row) line.push_back(sql::candidateText(value));
    }
    return texts;
  }
  std::string first(const std::string& statement) { return rows(statement).at(0).at(0); }
  /// The name of the working table with that prefix which was mentioned last.
  std::string table(const std::string& prefix) const {
    return tests::lastWorkingTable(recorder_.statements(), prefix);
  }
  std::string gridNames() {
    return first("SELECT GM61_NOMEREGOLA FROM " + table("##tempGriglia") + " WHERE GM61_ID = 1");
  }
  /// Computes the candidates of a list type, ticks them all and saves them.
  void saveAll(int listType) {
    play("open\npage 12\nchoose CMB_LISTINISCONTO " + std::to_string(listType) +
         "\nclick CMD_AGGIORNA\n"
         "tick CHK_SCONTOPREZZOART on\ntick-all QGRID_SCONTOSUPREZZO GM61_ATTIVA on\n"
         "tick CHK_GRIGLIASCONTI on\ntick-all QGRID_SCONTOSUGRIGLIA GM61_ATTIVA on");
    recorder_.clear();
    play("press INAV_PAR Conferma\nexpect no message");
  }

  std::ostream nowhere_{nullptr};
  std::ostringstream complaints_;
  Player player_{nowhere_, complaints_};
  tests::StatementRecorder recorder_{tests::StatementRecorder::Kinds::WithoutEdits};
  StatementFaults noFaults_;
  ModelWorkplace workplace_{{
      .user = player_,
      .database = demoCompany(),
      .observer = &recorder_,
      .clock = [] { return *Date::make(2024, 2, 29, 23, 59, 58); },
  }};
};

/// The steps that a price list holds for a rule: of the row's key and dates, the
/// ten of the lowest quantities, discounts or prices.
std::vector<std::string> stepsOf(const std::vector<std::vector<std::string>>& list,
                                 const std::vector<std::string>& key, bool discounts) {
  std::vector<std::pair<Decimal, std::string>> found;
  for (const auto& row : list) {
    if (!std::equal(key.begin(), key.end(), row.begin())) continue;
    const auto last = row.end();
    found.emplace_back(*Decimal::parse(*(last - 3)), discounts ? *(last - 1) : *(last - 2));
  }
  std::sort(found.begin(), found.end());
  std::vector<std::string> steps;
  for (std::size_t i = 0; i < 10; ++i) {
    steps.push_back(i < found.size() ? sql::candidateText(found[i].first) : "NULL");
    steps.push_back(i < found.size() ? found[i].second : "NULL");
  }
  return steps;
}

std::string stepColumns() {
  std::string columns;
  for (int i = 0; i < 10; ++i) {
    const std::string step = std::to_string(i);
    columns += ", R.GM61_GRIGLIAVALINF" + step + ", R.GM61_GRIGLIAVALORESC" + step;
  }
  return columns;
}

/// Where the steps of a rule come from: the columns of a candidate that find them,
/// those of the price list, and what else its rows must hold.
struct StepSource {
  int listType;
  const char* label;
  const char* key;
  const char* prefix;
  const char* table;
  const char* listKey;
  const char* condition;
};

const char* const article = "W.GM61_CODART_MG66, W.GM61_OPZIONE_MG5E";
const char* const customer = "W.GM61_CODCLIENTE, W.GM61_CODART_MG66, W.GM61_OPZIONE_MG5E";
const char* const path =
    "W.GM61_FAM_MG53, W.GM61_SFAM_MG54, W.GM61_GRUPPO_MG55, W.GM61_SGRUPPO_MG56";
const char* const customersSteps = "LI15_CLIFOR_CG44, LI15_CODART_MG66, LI15_OPZIONE_MG5E";
const char* const pathsSteps = "LI34_FAM_MG53, LI34_SFAM_MG54, LI34_GRUP_MG55, LI34_SGRUP_MG56";
const char* const salesIn14 =
    "LI14_FLGUSODECOR = 0 AND LI14_FLGVENDACQ = 0 AND "
    "LI14_CODICE_CG08 = 'EURO'";
const char* const salesIn34 =
    "LI34_FLGUSODECOR = 0 AND LI34_FLGVENDACQ = 0 AND "
    "LI34_CODICE_CG08 = 'EURO'";

const StepSource stepSources[] = {
    // The first list type asks for neither the currency nor the list's flag.
    {1, "Lis. Cli./Art./Scagl. qtà", customer, "LI15", "LI15_LISTARTCFQTA", customersSteps,
     "LI15_FLGUSODECOR = 0 AND LI15_TIPOCF_CG44 = 0"},
    {2, "Lis. art./scagl. qtà", "W.GM61_CODART_MG66, W.GM61_OPZIONE_MG5E, W.GM61_DESC2", "LI14",
     "LI14_LISTARTQTA", "LI14_CODART_MG66, LI14_OPZIONE_MG5E, LI14_NUMLISTUTIL", salesIn14},
    {2, "Lis. cod. parlante/scagl. qtà", path, "LI34", "LI34_LISTCODPQTA", pathsSteps, salesIn34},
    {3, "Lis. cli./art./scagl. qtà", customer, "LI15", "LI15_LISTARTCFQTA", customersSteps,
     "LI15_FLGUSODECOR = 0 AND LI15_TIPOCF_CG44 = 0 AND LI15_CODICE_CG08 = 'EURO'"},
    {4, "Lis. art./scagl. qtà", article, "LI14", "LI14_LISTARTQTA",
     "LI14_CODART_MG66, LI14_OPZIONE_MG5E", salesIn14},
    {4, "Lis. cod. parlante/scagl. qtà", path, "LI34", "LI34_LISTCODPQTA", pathsSteps, salesIn34},
};

class SavedStepsTest : public DiscountPageTest, public testing::WithParamInterface<StepSource> {};

TEST_P(SavedStepsTest, AreTheFirstTenOfTheRulesOwnPriceList) {
  const StepSource& of = GetParam();
  saveAll(of.listType);
  const std::string prefix = of.prefix;
  const auto list =
      rows("SELECT " + std::string(of.listKey) + ", " + prefix + "_DATAINIZIOVAL, " + prefix +
           "_DATAFINEVAL, " + prefix + "_DAQTA, " + prefix + "_PREZZO, " + prefix +
           "_SC1PER FROM " + of.table + " WHERE " + prefix + "_DITTA_CG18 = 1 AND " + of.condition);
  // The window's working table still knows what the rule does not keep.
  const auto rules =
      rows("SELECT " + std::string(of.key) + ", R.GM61_DATAINIZIO, R.GM61_DATAFINE" +
           stepColumns() + " FROM GM61_KBDISCOUNTRULES R INNER JOIN " + table("##tempGriglia") +
           " W ON W.GM61_NOMEREGOLA = R.GM61_NOMEREGOLA WHERE R.GM61_DESCLISTCORVANE = '" +
           of.label + "' AND R.GM61_FLGGRIGLIASCONTI = 1 AND R.GM61_INDTIPOLISTINO = " +
           std::to_string(of.listType));
  ASSERT_GE(rules.size(), 20U);
  constexpr std::size_t steps = 20;
  bool anyLong = false;
  for (const auto& rule : rules) {
    const auto end = rule.end() - steps;
    const std::vector<std::string> key(rule.begin(), end);
    const std::vector<std::string> found(end, rule.end());
    EXPECT_EQ(found, stepsOf(list, key, true)) << testing::PrintToString(key);
    EXPECT_NE(found.front(), "NULL") << testing::PrintToString(key);
    anyLong = anyLong || found.back() != "NULL";
  }
  EXPECT_TRUE(anyLong) << "no rule has ten steps";
}

INSTANTIATE_TEST_SUITE_P(EveryList, SavedStepsTest, testing::ValuesIn(stepSources),
                         [](const auto& test) {
                           return "Type" + std::to_string(test.param.listType) + test.param.prefix;
                         });

class SavedRulesTest : public DiscountPageTest, public testing::WithParamInterface<int> {};

TEST_P(SavedRulesTest, AreExactlyTheTickedRowsOneInsertARow) {
  const std::string ofType =
      " FROM GM61_KBDISCOUNTRULES WHERE GM61_INDTIPOLISTINO = " + std::to_string(GetParam()) +
      " AND GM61_DITTA_CG18 = 1";
  saveAll(GetParam());
  const auto candidates = [&](sql::DiscountMode mode) {
    return sql::expectedCandidates(workplace_.session(), mode, GetParam(), "1").size();
  };
  const std::size_t onPrice = candidates(sql::DiscountMode::OnPrice);
  const std::size_t byGrid = candidates(sql::DiscountMode::Grid);
  EXPECT_EQ(first("SELECT COUNT(*)" + ofType +
                  " AND GM61_FLGSCONTISUPRZ = 1 AND "
                  "GM61_FLGGRIGLIASCONTI = 0"),
            std::to_string(onPrice));
  EXPECT_EQ(first("SELECT COUNT(*)" + ofType +
                  " AND GM61_FLGSCONTISUPRZ = 0 AND "
                  "GM61_FLGGRIGLIASCONTI = 1"),
            std::to_string(byGrid));
  EXPECT_EQ(recorder_.countBeginningWith("INSERT INTO"), onPrice + byGrid);
  EXPECT_EQ(recorder_.countBeginningWith("DELETE"), 2U);
  EXPECT_EQ(first("SELECT COUNT(*)" + ofType +
                  " AND GM61_ATTIVA = 1 AND GM61_DATAULTAGG = "
                  "'20240229'"),
            std::to_string(onPrice + byGrid));
  play("expect LBL_DATAULTAGG = \"Ultimo aggiornamento: 29/02/2024\"");

  // Prices and percentages are the candidates', to the last digit that the column holds.
  const auto prices = rows(
      "SELECT R.GM61_SC1PER, R.GM61_PREZZOLORDO, R.GM61_PREZZONETTO, R.GM61_VALORESCONTO, "
      "W.GM61_SC1PER AS S, W.GM61_PREZZOLORDO AS L, W.GM61_PREZZONETTO AS N "
      "FROM GM61_KBDISCOUNTRULES R INNER JOIN " +
      table("##tempPrezzo") +
      " W ON W.GM61_NOMEREGOLA = R.GM61_NOMEREGOLA WHERE R.GM61_FLGSCONTISUPRZ = 1 AND "
      "R.GM61_INDTIPOLISTINO = " +
      std::to_string(GetParam()));
  EXPECT_EQ(prices.size(), onPrice);
  for (const auto& row : prices) {
    const std::string net = sql::candidateText(Decimal::parse(row[6])->roundedAway(6));
    EXPECT_EQ(std::vector<std::string>(row.begin(), row.begin() + 4),
              (std::vector<std::string>{row[4], row[5], net, row[4]}));
  }
  // Loaded again they come back as they were stored, ticked.
  play("choose CMB_LISTINISCONTO 0\nchoose CMB_LISTINISCONTO " + std::to_string(GetParam()) +
       "\nexpect no message\nexpect QGRID_SCONTOSUPREZZO rows = " + std::to_string(onPrice) +
       "\nexpect QGRID_SCONTOSUGRIGLIA rows = " + std::to_string(byGrid) +
       "\nexpect QGRID_SCONTOSUPREZZO 1 GM61_ATTIVA = on\nexpect CHK_GRIGLIASCONTI = on");
}

INSTANTIATE_TEST_SUITE_P(EveryType, SavedRulesTest, testing::Values(1, 2, 3, 4));

TEST_F(DiscountPageTest, EveryLoadTakesAWorkingTableOfAnotherNameAndDropsTheOldOne) {
  play("open\npage 12\nchoose CMB_LISTINISCONTO 1");
  const std::string price = table("##tempPrezzo");
  const std::string grid = table("##tempGriglia");
  recorder_.clear();
  // A recomputation keeps the name.
  play("click CMD_AGGIORNA");
  EXPECT_EQ(table("##tempPrezzo"), price);
  play("choose CMB_LISTINISCONTO 4\nexpect no message");
  EXPECT_EQ(recorder_.countBeginningWith("IF OBJECT_ID('TEMPDB.DBO." + price +
                                         "') IS NOT NULL DROP TABLE "),
            2U);
  EXPECT_NE(table("##tempPrezzo"), price);
  EXPECT_NE(table("##tempGriglia"), grid);
  EXPECT_EQ(first("SELECT COUNT(*) WHERE OBJECT_ID('TEMPDB.DBO." + price + "') IS NULL"), "1");
  play("close");
}

TEST_F(DiscountPageTest, TheTickOfASingleRowIsSavedCommittedOrPending) {
  workplace_.session().execute(
      "DELETE FROM GM61_KBDISCOUNTRULES WHERE GM61_INDTIPOLISTINO = 1 AND GM61_ID <> 1");
  play("open\npage 12\nchoose CMB_LISTINISCONTO 1\nexpect QGRID_SCONTOSUPREZZO rows = 1");
  const auto stored = [&] {
    return first("SELECT COUNT(*) FROM GM61_KBDISCOUNTRULES WHERE GM61_INDTIPOLISTINO = 1");
  };
  auto& grid = dynamic_cast<controls::QueryGrid&>(
      *workplace_.desktop().front()->find("QGRID_SCONTOSUPREZZO"));
  for (const bool pending : {false, true}) {
    play("tick-cell QGRID_SCONTOSUPREZZO 1 GM61_ATTIVA\npress INAV_PAR Conferma");
    EXPECT_EQ(stored(), "0") << "the stored rule was unticked";
    if (pending) {
      // As a grid leaves it that writes a row only when the user goes to another one.
      grid.dataSource()->setValue("GM61_ATTIVA", std::int16_t{1});
      play("tick CHK_NONTRATTAREALTRISCONTI off\ntick CHK_NONTRATTAREALTRISCONTI on");
    } else {
      play("tick-cell QGRID_SCONTOSUPREZZO 1 GM61_ATTIVA");
    }
    play("press INAV_PAR Conferma\nexpect no message");
    EXPECT_EQ(stored(), "1") << "pending: " << pending;
  }
  play("close");
}

TEST_F(DiscountPageTest, GridRulesAreNamedAfterThePriceRulesComputedBefore) {
  play("open\npage 12\nchoose CMB_LISTINISCONTO 1");
  // Stored price rules were loaded, none computed yet.
  EXPECT_EQ(gridNames(), "Lis. Cli./Art./Scagl. qtà - 7");
  play("click CMD_AGGIORNA");
  const std::string computed = first("SELECT COUNT(*) FROM " + table("##tempPrezzo"));
  EXPECT_EQ(gridNames(), "Lis. Cli./Art./Scagl. qtà - " + std::to_string(std::stoi(computed) + 7));
}

TEST_F(DiscountPageTest, UntickedRowsLockWhatIsEditedAndTheListFollowsTheType) {
  play(
      "open\npage 12\nchoose CMB_LISTINISCONTO 4\nclick CMD_AGGIORNA\n"
      "tick CHK_SCONTOPREZZOART on");
  const auto edit = [&](const char* field, const char* value) {
    workplace_.hands().edit("QGRID_SCONTOSUPREZZO", 1, field, value);
  };
  for (const char* field : {"GM61_TIPOSCONTO", "GM61_CAMPOCORVANE", "GM61_POSIZIONE", "DUMMY"}) {
    EXPECT_THROW(edit(field, "1"), controls::GestureRefused) << field;
  }
  workplace_.hands().tickCell("QGRID_SCONTOSUPREZZO", 1, "GM61_ATTIVA");
  EXPECT_THROW(edit("GM61_CAMPOCORVANE", "1"), controls::GestureRefused);
  EXPECT_THROW(edit("GM61_NOMEREGOLA", "x"), controls::GestureRefused);
  edit("GM61_TIPOSCONTO", "1");
  edit("GM61_CAMPOCORVANE", "1");
  edit("GM61_POSIZIONE", "9");
  EXPECT_THROW(edit("DUMMY", "1"), controls::GestureRefused);
  // 219.10 less 33.33 %, in the locale's form.
  EXPECT_EQ(workplace_.hands().cellText("QGRID_SCONTOSUPREZZO", 1, "GM61_PREZZONETTO"),
            "146,07397");
  workplace_.hands().tickCell("QGRID_SCONTOSUPREZZO", 1, "GM61_ATTIVA");
  EXPECT_THROW(edit("GM61_POSIZIONE", "8"), controls::GestureRefused);
  EXPECT_EQ(workplace_.hands().cellText("QGRID_SCONTOSUPREZZO", 1, "GM61_POSIZIONE"), "9");
}

}  // namespace
}  // namespace kebu::workbench
