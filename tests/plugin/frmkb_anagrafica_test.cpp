#include "forms/anagrafica/frame/frmkb_anagrafica.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "tests/plugin/plugin_fixture.h"
#include "workbench/engine/execution/session.h"
#include "workbench/host/host_status_bar.h"
#include "workbench/host/object_models.h"

namespace kebu::plugin {
namespace {

RuntimeError failure() {
  return {462, "The remote server machine does not exist or is unavailable", "Host"};
}

class FailingMessages : public host::MessageService {
 public:
  std::string Translate(const std::string&) override { throw failure(); }
  std::int32_t MsgBox(const Value&, std::int32_t, const Value&, const Value&) override {
    throw failure();
  }
  std::int32_t MsgBoxFromId(std::int32_t, std::int32_t, const Value&, const Value&) override {
    throw failure();
  }
};

class FailingStatusBar : public host::StatusBar {
 public:
  Ref<host::StatusBarPanel> Panels(std::int32_t) override { throw failure(); }
};

/// A script that wants every event to go on.
class AllowingScript : public workbench::ScriptModel {
 public:
  AllowingScript()
      : ScriptModel([](const std::string&) {}, [](const std::string&) { return false; }) {}
  void RunEvent(const std::string&, bool& cancel) override { cancel = false; }
};

/// The host's global services, of which a test replaces some.
class ReplacedServices : public workbench::GlobalServices {
 public:
  using GlobalServices::GlobalServices;

  Ref<host::MessageService> Messages() override {
    return messages ? messages : GlobalServices::Messages();
  }
  Ref<host::ScriptModel> CreateScriptModel() override {
    return script ? script : GlobalServices::CreateScriptModel();
  }

  void RefreshStatus(const Ref<host::NamedObject>& /*activeFrame*/) override { ++refreshes; }

  Ref<host::MessageService> messages;
  Ref<host::ScriptModel> script;
  int refreshes = 0;
};

class WindowTest : public PluginTest {
 protected:
  void show() {
    plugin = create();
    plugin->setClsGlobal(global);
    plugin->setCaption("Collegamento");
    for (const auto& allow : {&CLSKB_ANAGKELMORIA::setCanInsert, &CLSKB_ANAGKELMORIA::setCanDelete,
                              &CLSKB_ANAGKELMORIA::setCanUpdate}) {
      ((*plugin).*allow)(true);
    }
    plugin->ShowForm();
  }
  void openPage(std::int32_t view) { control<controls::SideBar>("SBAR_MAIN").click(view); }
  void press(const char* button) { control<controls::NavigatorBar>("INAV_PAR").press(button); }
  std::string value(const std::string& statement) {
    return toText(engine::Session(database).execute(statement).front().rows.front().front());
  }
  std::size_t tracedAs(const std::string& place) const {
    return static_cast<std::size_t>(
        std::count_if(platform.trace.begin(), platform.trace.end(), [&](const std::string& line) {
          return line.starts_with("KVRE:|" + place + "|462|Host|");
        }));
  }

  static constexpr std::int32_t priceLists = 2;
  static constexpr std::int32_t articleCategories = 7;
  static constexpr std::int32_t discountRules = 12;

  Ref<ReplacedServices> global = makeRef<ReplacedServices>(surroundings());
  Ref<CLSKB_ANAGKELMORIA> plugin;
};

TEST_F(WindowTest, FailingMessageServiceGivesWayToTheSystemsBox) {
  global->messages = makeRef<FailingMessages>();
  show();
  EXPECT_TRUE(user.boxes.empty()) << user.boxes.front().text;
  EXPECT_EQ(control<controls::NavigatorBar>("INAV_PAR").buttons()[1].caption, "Conferma");
  EXPECT_GT(tracedAs("TranslateString"), 0U);

  press("Elimina");
  ASSERT_EQ(platform.boxes.size(), 1U);
  EXPECT_EQ(platform.boxes.back().title, "Collegamento");
  EXPECT_TRUE(platform.boxes.back().text.starts_with("Eliminare il record corrente?"));
  EXPECT_EQ(platform.boxes.back().style, 292);
  EXPECT_EQ(value("SELECT COUNT(*) FROM GM03_DISPOSITIVI WHERE GM03_IDDISPOSITIVO = 2"), "1");

  // A save that is refused with a message stays refused.
  const std::string before = value("SELECT GM04_INDTIPODEPIMP FROM GM04_PARAMETRITVRO");
  control<controls::ComboBox>("CMB_GM04_INDTIPODEPIMP").choose("1");
  control<controls::EditBox>("TXT_GM04_DEPDOCWEB_MG58").type("");
  press("Conferma");
  ASSERT_EQ(platform.boxes.size(), 2U);
  EXPECT_EQ(platform.boxes.back(), (ShownMessage{"Collegamento", "12569", 48}));
  EXPECT_EQ(value("SELECT GM04_INDTIPODEPIMP FROM GM04_PARAMETRITVRO"), before);
  EXPECT_TRUE(user.boxes.empty()) << user.boxes.front().text;
}

TEST_F(WindowTest, HostsProceduresReportTheirErrorsThroughIt) {
  show();
  auto& members = dynamic_cast<host::WindowMembers&>(*desktop.front());
  user.answerTo = [](const ShownMessage&) { return msgbox::ignore; };
  EXPECT_EQ(members.VisualizzaErrore("Procedura_Cliente"), 5);
  ASSERT_EQ(user.boxes.size(), 1U);
  EXPECT_EQ(user.boxes[0].title, "KEBU_ANAGKELMORIA - Collegamento");
  EXPECT_EQ(user.boxes[0].text.substr(0, 34), "Errore n. 0 in Procedura_Cliente\r\n");
  // A host may keep the window longer than it is open.
  const auto window =
      std::dynamic_pointer_cast<controls::Form>(desktop.front()->shared_from_this());
  EXPECT_EQ(plugin->CloseForm(), Value(true));
  EXPECT_EQ(members.VisualizzaErrore("Procedura_Cliente"), 3);
  EXPECT_EQ(platform.boxes.back().text, "Classe Log non settata");
  EXPECT_EQ(members.VLTMsgBox("Salvare?", msgbox::yesNo, "Titolo", {}), msgbox::ok);
  EXPECT_EQ(platform.boxes.back(), (ShownMessage{"Titolo", "Salvare?", 4}));
}

TEST_F(WindowTest, ScriptCannotAllowAClosingThatTheUserRefused) {
  global->script = makeRef<AllowingScript>();
  show();
  control<controls::EditBox>("TXT_GM04_FTPUSER").type("anna");
  user.answerTo = [](const ShownMessage&) { return msgbox::cancel; };
  EXPECT_EQ(plugin->CloseForm(), Value(false));
  EXPECT_NE(desktop.front(), nullptr);
}

TEST_F(WindowTest, HostStatusBarShowsWhatTheWindowsOwnShows) {
  const auto bar = makeRef<workbench::HostStatusBar>();
  show();
  plugin->setStatusBar(bar);
  openPage(discountRules);
  control<controls::ComboBox>("CMB_LISTINISCONTO").choose("1");
  EXPECT_EQ(bar->panels()[1]->text(), "Pronto");
  EXPECT_EQ(control<controls::StatusBar>("STATUSBAR").panels()[1], "Pronto");

  plugin->setStatusBar(makeRef<FailingStatusBar>());
  control<controls::ComboBox>("CMB_LISTINISCONTO").choose("2");
  EXPECT_TRUE(user.boxes.empty()) << user.boxes.front().text;
  EXPECT_GT(tracedAs("StatusBar"), 0U);
}

TEST_F(WindowTest, ASaveTellsItsTime) {
  show();
  const struct {
    int hour;
    int minute;
    const char* told;
  } saves[] = {{9, 5, "Salvato 09:05: "}, {10, 10, "Salvato 10:10: "}, {23, 59, "Salvato 23:59: "}};
  for (const auto& [hour, minute, told] : saves) {
    platform.clock = *Date::make(2026, 11, 26, hour, minute);
    control<controls::EditBox>("TXT_GM03_NOTE").type(told);
    press("Conferma");
    const std::string& notices = control<controls::NoticeList>("NOTICES").caption();
    EXPECT_NE(notices.find(told), std::string::npos) << notices;
  }
}

TEST_F(WindowTest, ProceduresOfTheDiscountRulesTitleTheirErrors) {
  show();
  openPage(discountRules);
  control<controls::ComboBox>("CMB_LISTINISCONTO").choose("1");
  control<controls::CheckBox>("CHK_SCONTOPREZZOART").tick(true);
  control<controls::CheckBox>("CHK_GRIGLIASCONTI").tick(true);
  engine::Session(database).execute(
      "DROP TABLE GM61_KBDISCOUNTRULES DROP TABLE LI16_LISTARTCF DROP TABLE LI15_LISTARTCFQTA");

  const auto titles = [&](auto&& action) {
    user.boxes.clear();
    action();
    std::vector<std::string> shown;
    for (const ShownMessage& box : user.boxes) {
      shown.push_back(box.title + ": " + box.text.substr(0, box.text.find('\r')));
    }
    return shown;
  };
  using Titles = std::vector<std::string>;
  const std::string number = "Errore - Collegamento: Errore n. -2147217900 in ";
  EXPECT_EQ(titles([&] { press("Conferma"); }),
            (Titles{number + "RegistraListini_1_A", number + "RegistraListini_1_B"}));
  EXPECT_EQ(titles([&] { control<controls::Button>("CMD_AGGIORNA").click(); }),
            (Titles{number + "AggiornaListini_1_A", number + "AggiornaListini_1_B"}));
  control<controls::CheckBox>("CHK_SCONTOPREZZOART").tick(true);
  // What the page's controls do by themselves keeps the application's title.
  EXPECT_EQ(titles([&] {
              control<controls::QueryGrid>("QGRID_SCONTOSUPREZZO").tickAll("GM61_ATTIVA", true);
            }),
            (Titles{"KEBU_ANAGKELMORIA - Collegamento: Errore n. -2147217900 in "
                    "QGRID_SCONTOSUPREZZO_SelectAllClickEXT"}));
}

TEST_F(WindowTest, ColumnsOfTheDiscountRulesShowDifferentFieldsOfTheirTables) {
  show();
  openPage(discountRules);
  auto& listTypes = control<controls::ComboBox>("CMB_LISTINISCONTO");
  const auto rows = listTypes.rows();
  EXPECT_EQ(rows.size(), 5U);
  for (const auto& listType : rows) {
    const std::string code = toText(listType.code);
    listTypes.choose(code);
    for (const char* name : {"QGRID_SCONTOSUPREZZO", "QGRID_SCONTOSUGRIGLIA"}) {
      auto& grid = control<controls::QueryGrid>(name);
      std::set<std::string> shown;
      for (const auto& column : grid.columns()) {
        if (code == "0" || column.field == "DUMMY") continue;
        const auto& fields = grid.dataSource()->fields();
        EXPECT_LT(ado::indexOf(fields, column.field), fields.size()) << code << column.field;
        EXPECT_TRUE(shown.insert(column.field).second) << code << column.field;
      }
    }
  }
}

TEST_F(WindowTest, OnlyTheTickOfARuleIsOpenUntilItIsTicked) {
  show();
  openPage(discountRules);
  control<controls::ComboBox>("CMB_LISTINISCONTO").choose("1");
  auto& grid = control<controls::QueryGrid>("QGRID_SCONTOSUPREZZO");
  const auto open = [&] {
    std::vector<std::string> fields;
    for (const auto& column : grid.columns()) {
      if (!grid.isLocked(1, column)) fields.push_back(column.field);
    }
    return fields;
  };
  using Fields = std::vector<std::string>;
  EXPECT_EQ(open(), (Fields{"GM61_ATTIVA", "GM61_TIPOSCONTO", "GM61_CAMPOCORVANE"}));
  grid.tickCell(1, "GM61_ATTIVA");
  EXPECT_EQ(open(), Fields{"GM61_ATTIVA"});
}

// The name of a control says which column it shows; two names are older than their columns.
TEST_F(WindowTest, ControlsOfTheProfileShowTheColumnsOfTheirNames) {
  show();
  const std::map<std::string, std::string> others{{"CBO_TIPOVALORIZZ", "GM04_INDTIPOCOSTOART"},
                                                  {"TXT_NUMLIST", "GM04_LISTCOSTOART_LI10"}};
  int columns = 0;
  for (controls::Control* each : desktop.front()->controls()) {
    auto* const bound = controls::as<controls::BoundControl>(*each);
    if (!bound) continue;
    const std::string name = each->Name();
    const std::size_t column = name.find("_GM0");
    const auto other = others.find(name);
    if (column == std::string::npos && other == others.end()) continue;
    EXPECT_EQ(bound->DBField(), other == others.end() ? name.substr(column + 1) : other->second);
    EXPECT_NE(bound->frame(), nullptr) << name;
    if (const auto* box = controls::as<controls::EditBox>(*each)) {
      EXPECT_EQ(box->isMasked(), name == "TXT_GM04_FTPPWD") << name;
    }
    ++columns;
  }
  EXPECT_GT(columns, 20);
  EXPECT_THROW(control<controls::EditBox>("TXT_GM04_PATHLOG").type(std::string(256, 'x')),
               controls::GestureRefused);
}

TEST_F(WindowTest, CodesOfTheProfileStandBesideTheirDescriptions) {
  show();
  for (const auto& [code, description] :
       {std::pair("TXT_GM04_CODDOCWEB_MG36", "LBL_DESCDOCWEB"),
        std::pair("TXT_GM04_DEPDOCWEB_MG58", "TXT_DEC_DEPDOCWEB_MG58"),
        std::pair("TXT_GM04_DEPGIACENZE_MG58", "LBL_DESCDEPGIACENZE"),
        std::pair("TXT_NUMLIST", "LBL_DESCLIST")}) {
    EXPECT_EQ(control<controls::EditBox>(code).description(), desktop.front()->find(description));
  }
}

TEST_F(WindowTest, TheHostShowsItsStatusAnewBeforeItCloses) {
  show();
  const int before = global->refreshes;
  EXPECT_GT(before, 0);
  plugin->CloseForm();
  EXPECT_GT(global->refreshes, before);
}

TEST_F(WindowTest, OnlyTheCaptionsOfComposedClassificationsAreTranslated) {
  translations = workbench::Translations::parse("Famiglia\\Sottofamiglia\tFamily\\Subfamily\n");
  global = makeRef<ReplacedServices>(surroundings());
  show();
  openPage(articleCategories);
  auto& level = control<controls::ComboBox>("CBO_ART_AZ(2)");
  const auto& rows = level.rows();
  EXPECT_TRUE(std::any_of(rows.begin(), rows.end(),
                          [](const auto& row) { return row.caption == "Family\\Subfamily"; }));
  level.choose("253");
  EXPECT_EQ(control<controls::EditBox>("TXT_DESC_ART_AZ(2)").text(), "Famiglia\\Sottofamiglia");
  EXPECT_FALSE(level.showsCodes()) << "they mean nothing to the user";
}

TEST_F(WindowTest, OnlyOneDepositIsPreferred) {
  show();
  for (const auto& column : control<controls::QueryGrid>("QGRID_DEP").columns()) {
    EXPECT_EQ(column.refusesAll, column.field == "FLG_PREF") << column.field;
  }
}

TEST_F(WindowTest, PriceSlotsMarkTheKeysThatOnlyOtherTypesUse) {
  const std::set<std::string> keys{"GM57_NUMLIST_LI10", "GM57_CATEGORIA", "GM57_DEPGIACENZE_MG58",
                                   "GM57_QUANTITA", "GM57_CLIFOR_CG44"};
  const std::pair<const char*, std::set<std::string>> used[] = {
      {"1", {"GM57_NUMLIST_LI10"}}, {"2", {"GM57_CATEGORIA"}},
      {"3", {"GM57_CATEGORIA"}},    {"4", {"GM57_DEPGIACENZE_MG58"}},
      {"5", {"GM57_QUANTITA"}},     {"6", {"GM57_QUANTITA", "GM57_CLIFOR_CG44"}},
  };
  show();
  openPage(priceLists);
  auto& grid = control<controls::QueryGrid>("QGRID_LISTINI");
  for (const auto& [type, needed] : used) {
    grid.edit(1, "GM57_INDTIPO", type);
    for (const auto& column : grid.columns()) {
      const bool isKey = keys.contains(column.field);
      if (!isKey && column.field.ends_with("_DEC")) continue;
      EXPECT_EQ(grid.isUnused(1, column.field), isKey && !needed.contains(column.field))
          << type << " " << column.field;
    }
  }
  // The state tells whether the key is there; the type by priority has none.
  const auto state = [&] { return toDisplay(grid.rowState(1)); };
  EXPECT_EQ(state(), "");
  grid.edit(1, "GM57_INDTIPO", "5");
  EXPECT_EQ(state(), "2");
  grid.edit(1, "GM57_QUANTITA", "3");
  EXPECT_EQ(state(), "1");
}

TEST_F(WindowTest, PriceSlotsNameTheirLookups) {
  show();
  std::vector<std::string> names;
  for (const auto& column : control<controls::QueryGrid>("QGRID_LISTINI").columns()) {
    if (column.kind == controls::ColumnKind::Lookup) names.push_back(column.lookup);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"GM57_NUMLIST_LI10_LKP", "GM57_CATEGORIA_LKP",
                                             "GM57_DEPGIACENZE_MG58_LKP", "GM57_CLIFOR_CG44_LKP"}));
}

}  // namespace
}  // namespace kebu::plugin
