// Some statements hold a text between quotes without doubling the quotes in it, on purpose. These
// are all of them, and why what can stand in the text does no harm.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "common/convert.h"
#include "common/nulls.h"
#include "controls/edit_box.h"
#include "controls/query_grid.h"
#include "forms/anagrafica/frame/pages.h"
#include "sql/deposits.h"
#include "sql/price_lists.h"
#include "sql/profile.h"
#include "tests/support/test_company.h"
#include "tests/support/test_user.h"
#include "workbench/player/model_workplace.h"

namespace kebu::tests {
namespace {

using controls::as;

struct BreakingStatement {
  const char* name;
  std::string (*make)(const sql::Company& company, const std::string& code);
  /// The columns of the boxes and cells whose text it takes, and how long they are.
  std::vector<std::pair<const char*, const char*>> columns;
};

// A code is stored in its column before it is looked for, and a longer text is refused there. To do
// more than break the statement it would have to hold a quote, a verb with a blank and the name of
// what the verb acts on.
constexpr std::size_t tooShortForHarm = 5;

const BreakingStatement breaking[] = {
    {"DepositoDocumento", sql::DepositoDocumento, {{"GM04_PARAMETRITVRO", "GM04_CODDOCWEB_MG36"}}},
    {"DecodificaDeposito",
     sql::DecodificaDeposito,
     {{"GM04_PARAMETRITVRO", "GM04_DEPDOCWEB_MG58"},
      {"GM04_PARAMETRITVRO", "GM04_DEPGIACENZE_MG58"}}},
    {"DescrizioneMacrocategoria",
     sql::DescrizioneMacrocategoria,
     {{"GM57_KBLISTINI", "GM57_CATEGORIA"}}},
    {"DescrizioneMacroarea", sql::DescrizioneMacroarea, {{"GM57_KBLISTINI", "GM57_CATEGORIA"}}},
    {"DescrizioneDeposito",
     sql::DescrizioneDeposito,
     {{"GM57_KBLISTINI", "GM57_DEPGIACENZE_MG58"}}},
};

/// The statement up to the text.
std::string beginningOf(const BreakingStatement& statement) {
  const std::string text = statement.make({"1"}, "");
  return text.substr(0, text.find("''"));
}

/// Keeps the statements that failed.
class FailingStatements : public workbench::StatementObserver {
 public:
  void before(const std::string&, bool) override {}
  void after(const std::string& text, bool, std::int64_t, const RuntimeError* error) override {
    if (error != nullptr) failed.push_back(text);
  }
  std::vector<std::string> failed;
};

class Quotes : public testing::Test {
 protected:
  Quotes() {
    user_.answerTo = [](const workbench::ShownMessage& box) {
      if (workbench::offers(box.style, msgbox::no)) return msgbox::no;
      return workbench::offers(box.style, msgbox::abort) ? msgbox::abort
                                                         : workbench::wayOut(box.style);
    };
  }

  TestUser user_;
  FailingStatements statements_;
  std::shared_ptr<engine::Database> database_ = workbench::demoCompany();
  workbench::ModelWorkplace workplace_{
      {.user = user_, .database = database_, .observer = &statements_}};
};

TEST_F(Quotes, BreakTheListedStatementsOnly) {
  workbench::ModelHands& hands = workplace_.hands();
  const auto tryAll = [](auto&& gesture) {
    try {
      gesture();
    } catch (const controls::GestureRefused&) {
    }
  };
  workplace_.host().open();
  hands.choose("CMB_GM04_INDTIPODEPIMP", "1");
  hands.choose("CBO_TIPOVALORIZZ", "16");
  for (const forms::PageEntry& page : forms::pageTable) {
    if (!page.view || page.preview != forms::PreviewKind::None) continue;
    hands.openPage(*page.view);
    for (controls::Control* control : workplace_.desktop().front()->controls()) {
      auto* const box = as<controls::EditBox>(*control);
      if (box && box->isReachable()) tryAll([&] { box->type("d'o"); });
    }
  }
  hands.openPage(1);
  hands.choose("CMB_GM04_INDTIPODEPIMP", "0");
  hands.type("TXT_GM04_CODDOCWEB_MG36", "d'o");
  tryAll([&] { hands.press("INAV_PAR", "Conferma"); });  // asks for the document's deposit
  tryAll([&] { hands.press("INAV_PAR", "Annulla"); });
  hands.openPage(2);
  std::int32_t row = 0;
  for (const std::int16_t type : {1, 2, 3, 4, 5, 6}) {
    hands.edit("QGRID_LISTINI", ++row, "GM57_INDTIPO", Value(type));
    for (const char* const field : {"GM57_NUMLIST_LI10", "GM57_CATEGORIA", "GM57_DEPGIACENZE_MG58",
                                    "GM57_QUANTITA", "GM57_CLIFOR_CG44"}) {
      tryAll([&] { hands.edit("QGRID_LISTINI", row, field, Value("d'o")); });
    }
  }
  tryAll([&] { hands.press("INAV_PAR", "Conferma"); });
  workplace_.host().close();

  std::set<std::string> broken;
  for (const std::string& text : statements_.failed) {
    const auto* const listed = std::ranges::find_if(
        breaking, [&](const auto& one) { return text.starts_with(beginningOf(one)); });
    if (listed == std::end(breaking)) {
      ADD_FAILURE() << "not in the list: " << text;
    } else {
      broken.insert(listed->name);
    }
  }
  for (const BreakingStatement& statement : breaking) {
    EXPECT_TRUE(broken.contains(statement.name)) << statement.name << " was not broken";
  }
}

TEST_F(Quotes, MarkTheRuleThatTheDatabaseWillRefuse) {
  constexpr std::int32_t marked = 2;
  TestCompany(database_).execute(
      "UPDATE GM61_KBDISCOUNTRULES SET GM61_NOMEREGOLA = 'Prezzo dell''anno' WHERE GM61_ID = 2");
  workbench::ModelHands& hands = workplace_.hands();
  workplace_.host().open();
  hands.openPage(forms::DiscountsPage::view);
  hands.choose("CMB_LISTINISCONTO", "1");
  auto& grid = dynamic_cast<controls::QueryGrid&>(
      *workplace_.desktop().front()->find("QGRID_SCONTOSUPREZZO"));
  const auto isTold = [&] {
    return std::ranges::any_of(hands.notices(), [](const workbench::ItemView& notice) {
      return notice.text.find("\"Prezzo dell'anno\": un testo") != std::string::npos;
    });
  };
  EXPECT_EQ(toInt32(CDecN(grid.rowState(2))), marked) << "stored rules are ticked";
  EXPECT_EQ(toInt32(CDecN(grid.rowState(1))), 0);
  hands.tickCell("QGRID_SCONTOSUPREZZO", 2, "GM61_ATTIVA");
  EXPECT_EQ(toInt32(CDecN(grid.rowState(2))), 0);
  EXPECT_FALSE(isTold());
  hands.tickCell("QGRID_SCONTOSUPREZZO", 2, "GM61_ATTIVA");
  EXPECT_EQ(toInt32(CDecN(grid.rowState(2))), marked);
  EXPECT_TRUE(isTold());
  hands.tickCell("QGRID_SCONTOSUPREZZO", 1, "GM61_ATTIVA");
  EXPECT_TRUE(isTold()) << "another rule changes nothing";
  workplace_.host().close();
}

TEST_F(Quotes, HaveNoRoomForHarm) {
  TestCompany company(database_);
  for (const BreakingStatement& statement : breaking) {
    for (const auto& [table, column] : statement.columns) {
      const auto results =
          company.session().execute(std::string("SELECT ") + column + " FROM " + table);
      EXPECT_LE(static_cast<std::size_t>(results.front().columns.front().type.size),
                tooShortForHarm)
          << column;
    }
    // A comment behind the quote makes it a statement that only reads.
    const auto before = company.rows("SELECT * FROM GM04_PARAMETRITVRO");
    try {
      company.execute(statement.make({"1"}, "'--"));
    } catch (const RuntimeError&) {
    }
    EXPECT_EQ(company.rows("SELECT * FROM GM04_PARAMETRITVRO"), before);
  }
}

}  // namespace
}  // namespace kebu::tests
