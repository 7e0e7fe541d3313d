#include <gtest/gtest.h>

#include <vector>

#include "common/convert.h"
#include "tests/support/test_user.h"
#include "workbench/company/company.h"
#include "workbench/engine/execution/session.h"
#include "workbench/host/error_log.h"
#include "workbench/host/lookups.h"
#include "workbench/host/messages.h"
#include "workbench/host/object_models.h"
#include "workbench/host/saved_filters.h"
#include "workbench/host/sql_decodes.h"

namespace kebu::workbench {
namespace {

using tests::TestUser;

TEST(Messages, NumberedOnesComeTranslatedFromTheStore) {
  TestUser user;
  Messages messages(user,
                    Translations::parse("Aggiornamento listini terminato.\tPrices refreshed."));
  EXPECT_EQ(messages.MsgBoxFromId(75210, 64, "Listini", {}), msgbox::ok);
  EXPECT_EQ(messages.MsgBoxFromId(12569, 48, "Listini", {}), msgbox::ok);
  EXPECT_EQ(messages.MsgBoxFromId(1, 0, "Listini", {}), msgbox::ok);
  EXPECT_EQ(messages.MsgBox("Salvare?", msgbox::yesNo, Null{}, {}), msgbox::no);
  const std::vector<ShownMessage> expected{
      {"Listini", "Prices refreshed.", 64},
      {"Listini", "Attenzione, specificare il deposito per i documenti importati.", 48},
      {"Listini", "Messaggio n. 1", 0},
      {"", "Salvare?", 4}};
  EXPECT_EQ(user.boxes, expected);
}

/// A connection whose last call failed.
class FailingConnection : public ado::ErrorSource {
 public:
  explicit FailingConnection(ado::Errors errors) : errors_(std::move(errors)) {}
  ado::Errors errors() const override { return errors_; }

 private:
  ado::Errors errors_;
};

TEST(ErrorLog, ShowsAllThatIsKnownOfTheError) {
  TestUser user;
  ErrorLog log(user);
  log.SetError(-2147217865, "Invalid object name.", "OLE DB");
  log.SetConnectionErrors(
      FailingConnection({{-2147217865, "Invalid object name 'X'.", "SQL Server", 208, "42S02"}}));
  EXPECT_EQ(log.ShowError("KEBU", "Parametri", "ShowChild", 4370), msgbox::abort);
  // The connection's errors belong to the error that they came with.
  log.SetError(13, "Type mismatch", "KEBU");
  log.ShowError("KEBU", "Parametri", "CDecN", 4370);

  ASSERT_EQ(user.boxes.size(), 2U);
  EXPECT_EQ(user.boxes[0].title, "KEBU - Parametri");
  EXPECT_EQ(user.boxes[0].style, 4370);
  EXPECT_EQ(user.boxes[0].text,
            "Errore n. -2147217865 in ShowChild\r\nInvalid object name.\r\nOrigine: OLE DB\r\n"
            "SQL Server [42S02, 208]: Invalid object name 'X'.");
  EXPECT_EQ(user.boxes[1].text, "Errore n. 13 in CDecN\r\nType mismatch\r\nOrigine: KEBU");
}

TEST(SavedFilters, KeepsTheLastTextOfEachName) {
  SavedFilters filters;
  EXPECT_TRUE(filters.Load("ENHQUERY_CLI", "Filtro clienti").isEmpty());
  filters.Save("ENHQUERY_CLI", "Filtro clienti", "a", true);
  filters.Save("ENHQUERY_CLI", "Filtro clienti", "b", true);
  filters.Save("ENHQUERY_ART", "Filtro clienti", "c", false);
  EXPECT_EQ(filters.Load("ENHQUERY_CLI", "Filtro clienti"), Value("b"));
}

/// What the window does with the host's statements, on the demo company.
class HostStatementsTest : public testing::Test {
 protected:
  std::vector<std::vector<Value>> rows(const std::string& statement) {
    return session.execute(statement).front().rows;
  }
  std::string value(const std::string& statement) {
    const auto result = rows(statement);
    return result.empty() ? "" : toText(result.front().front());
  }

  std::shared_ptr<engine::Database> database = demoCompany();
  engine::Session session{database};
};

TEST_F(HostStatementsTest, DecodesFindTheDescriptionUnderItsName) {
  SqlDecodes decodes;
  const auto result = session.execute(decodes.DocumentType("1", "OCW")).front();
  EXPECT_EQ(result.columns.front().name, "MG36_DESCR");
  EXPECT_EQ(toText(result.rows.front().front()), "Ordine cliente da web");
  EXPECT_EQ(value(decodes.DocumentType("1", "o'c")), "");
  EXPECT_EQ(value(decodes.DocumentType("9", "OCW")), "");

  EXPECT_EQ(value(decodes.Customer("1", "1072")), "Ferramenta D'Amico S.r.l.");
  EXPECT_EQ(session.execute(decodes.Customer("1", "1072")).front().columns.front().name,
            "CG16_RAGSOANAG");
  EXPECT_EQ(value(decodes.Customer("1", "")), "");
}

TEST_F(HostStatementsTest, ListsHoldTheCompanysRowsUnderEnoughCaptions) {
  Lookups lookups;
  for (const auto& list : {lookups.DocumentTypes("1"), lookups.Customers("1")}) {
    const auto result = session.execute(list.statement).front();
    EXPECT_EQ(result.columns.size(), list.captions.size()) << list.title;
    EXPECT_FALSE(result.rows.empty()) << list.title;
  }
  // Suppliers are no customers.
  EXPECT_EQ(
      std::to_string(rows(lookups.Customers("1").statement).size()),
      value("SELECT COUNT(*) FROM CG44_CLIFOR WHERE CG44_DITTA_CG18 = 1 AND CG44_TIPOCF = 0"));
  EXPECT_TRUE(rows(lookups.Customers("9").statement).empty());
}

TEST_F(HostStatementsTest, CodesAreListedAndDecodedUnderTheLevelsAboveThem) {
  SqlDecodes decodes;
  Lookups lookups;
  struct Case {
    std::vector<std::string> keys;
    const char* table;
    const char* description;
    const char* column;
  };
  const Case cases[] = {
      {{"CEN"}, "MG07", "Centro Italia", "MG07_DESCRMACROAR"},
      {{"CEN", "ADR"}, "MG08", "Versante adriatico", "MG08_DESCRAREA"},
      {{"CEN", "ADR", "MAR"}, "MG09", "Marche", "MG09_DESCRZONA"},
      {{"RIV"}, "MG10", "Rivenditori", "MG10_DESCRMACROCAT"},
      {{"RIV", "FER"}, "MG11", "Ferramenta", "MG11_DESCRCAT"},
      {{"VER"}, "MG53", "Vernici", "MG53_DESCRFAM"},
      {{"VER", "SMA"}, "MG54", "Smalti", "MG54_DESCRSFAM"},
      {{"VER", "SMA", "G2"}, "MG55", "Linea professionale", "MG55_DESCRGRUPPO"},
      {{"VER", "SMA", "G2", "S1"}, "MG56", "Confezione singola", "MG56_DESCRSGRUPPO"},
  };
  for (const Case& each : cases) {
    const auto decoded = session.execute(decodes.Code(each.table, "1", each.keys)).front();
    ASSERT_EQ(decoded.rows.size(), 1U) << each.table;
    EXPECT_EQ(decoded.columns.front().name, each.column);
    EXPECT_EQ(toText(decoded.rows.front().front()), each.description);

    const std::vector<std::string> upper(each.keys.begin(), each.keys.end() - 1);
    bool listed = false;
    for (const auto& row : rows(lookups.Codes(each.table, "1", upper).statement)) {
      listed |= toText(row[0]) == each.keys.back() && toText(row[1]) == each.description;
    }
    EXPECT_TRUE(listed) << each.table;
  }
  EXPECT_EQ(value(decodes.Code("MG53", "1", {"o'c"})), "");
  EXPECT_THROW(decodes.Code("MG99", "1", {"A"}), RuntimeError);
  // The same code under another family is another code.
  EXPECT_EQ(value(decodes.Code("MG54", "1", {"VER", "INT"})), "Vernici per interni");
  EXPECT_EQ(value(decodes.Code("MG54", "1", {"ELE", "INT"})), "Interruttori");
}

TEST_F(HostStatementsTest, EveryListOfCodesRuns) {
  Lookups lookups;
  const char* const tables[] = {"MG07",
                                "MG10",
                                "MG12",
                                "MG31",
                                "MG32",
                                "MG33",
                                "MG53",
                                "MG57",
                                "MG63",
                                "MG64",
                                "MG66",
                                "MG74",
                                "MG75",
                                "MG76",
                                "MG77",
                                "PD18_INDPROVENIENZA",
                                "PD18_INDTIPOPROD"};
  std::vector<host::LookupDefinition> lists{lookups.CustomerNames("1"), lookups.Suppliers("1")};
  for (const char* table : tables) lists.push_back(lookups.Codes(table, "1", {}));
  for (const auto& list : lists) {
    const auto result = session.execute(list.statement).front();
    EXPECT_EQ(result.columns.size(), list.captions.size()) << list.title;
    EXPECT_FALSE(result.rows.empty()) << list.title;
  }
}

TEST(ScriptModel, ARefusalCancelsAndNothingElseDoes) {
  ScriptModel script([](const std::string&) {},
                     [](const std::string& event) { return event == "tsClose"; });
  bool cancel = false;
  script.RunEvent("tsOpen", cancel);
  EXPECT_FALSE(cancel);
  script.RunEvent("tsClose", cancel);
  EXPECT_TRUE(cancel);
  script.RunEvent("tsOpen", cancel);
  EXPECT_TRUE(cancel) << "what was cancelled before stays so";
}

}  // namespace
}  // namespace kebu::workbench
