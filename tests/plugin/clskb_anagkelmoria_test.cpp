#include "plugin/clskb_anagkelmoria.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

#include "common/convert.h"
#include "controls/edit_box.h"
#include "tests/plugin/plugin_fixture.h"
#include "workbench/engine/execution/session.h"
#include "workbench/host/object_models.h"

namespace kebu::plugin {
namespace {

TEST_F(PluginTest, EachInstanceTracesOneIdentifierOfItsOwn) {
  create();
  create();
  ASSERT_EQ(platform.trace.size(), 4U);
  EXPECT_EQ(platform.trace[0],
            "KVRA:|00000001000000000000000000000000|INI|KEBU_ANAGRAFICA|CLSKB_ANAGRAFICA");
  EXPECT_EQ(platform.trace[1],
            "KVRA:|00000001000000000000000000000000|TER|KEBU_ANAGRAFICA|CLSKB_ANAGRAFICA");
  EXPECT_EQ(platform.trace[2].substr(0, 14), "KVRA:|00000002");
}

TEST_F(PluginTest, WindowTracesItsOwnLines) {
  {
    const auto plugin = create();
    plugin->ShowForm();
  }
  ASSERT_EQ(platform.trace.size(), 4U);
  EXPECT_EQ(platform.trace[1],
            "KVRA:|00000002000000000000000000000000|INI|KEBU_ANAGRAFICA|FRMKB_ANAGRAFICA");
  EXPECT_NE(platform.trace[3].find("|TER|KEBU_ANAGRAFICA|FRMKB_ANAGRAFICA"), std::string::npos);
}

TEST_F(PluginTest, PropertiesKeepWhatFitsAndSkipWhatDoesNot) {
  const auto plugin = create();
  plugin->setWindowState(2);
  plugin->setWindowState(70000);
  EXPECT_EQ(plugin->WindowState(), 2);
  plugin->setProgramMode(-32768);
  plugin->setProgramMode(-32769);
  EXPECT_EQ(platform.trace.back(), "KVRE:|ProgramMode|6|KEBU_ANAGKELMORIA|Overflow");
  EXPECT_EQ(plugin->ProgramMode(), -32768);
  plugin->setTop("12");
  plugin->setTop("in alto");
  plugin->setLeft(Null{});
  EXPECT_EQ(plugin->Top(), Value(std::int32_t{12}));
  EXPECT_EQ(plugin->Left(), Value(std::int32_t{0}));
  plugin->setFiltro("CG44_CLIFOR = 1");
  EXPECT_TRUE(plugin->Filtro().isEmpty());
  EXPECT_TRUE(plugin->MenuProg().isEmpty());
  EXPECT_EQ(plugin->ActiveDll().get(), plugin.get());
  EXPECT_FALSE(plugin->ActiveFrame());
  EXPECT_EQ(plugin->CloseForm(), Value(false));
}

TEST_F(PluginTest, WindowLivesFromShowToClose) {
  const auto plugin = create();
  plugin->setClsGlobal(services());
  plugin->setCaption("Collegamento");
  plugin->setLeft(std::int32_t{0});
  plugin->setTop(std::int32_t{40});
  plugin->setHwndParent(7);
  EXPECT_TRUE(plugin->ShowForm().isEmpty());
  ASSERT_NE(desktop.front(), nullptr);
  EXPECT_EQ(desktop.front()->caption(), "Collegamento");
  EXPECT_EQ(desktop.front()->left(), 100);
  EXPECT_EQ(desktop.front()->top(), 40);
  EXPECT_EQ(control<controls::MdiContainer>("MDIActiveX1").parentWindow(), 7);
  EXPECT_FALSE(plugin->Cwindow());
  EXPECT_EQ(plugin->ActiveFrame()->Name(), "FME_ANAGRAFICA");
  // A connection of the window's own, which a second activation keeps.
  const Ref<ado::Connection> connection = plugin->Connection();
  ASSERT_TRUE(connection);
  desktop.front()->activate();
  EXPECT_EQ(plugin->Connection(), connection);
  // The user's script hears of both ends.
  EXPECT_EQ(std::count(journal.begin(), journal.end(), "script: event tsOpen"), 1);
  EXPECT_EQ(plugin->CloseForm(), Value(true));
  EXPECT_EQ(journal.back(), "script: event tsClose");
  EXPECT_EQ(desktop.front(), nullptr);
  EXPECT_TRUE(user.boxes.empty());
}

TEST_F(PluginTest, ModalWindowReturnsWhenClosed) {
  const auto plugin = create();
  plugin->setClsGlobal(services());
  plugin->setWindowModal(true);
  int modalWindows = 0;
  user.inModalWindow = [&](controls::Form& form) {
    ++modalWindows;
    form.Unload();
  };
  plugin->ShowForm();
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(desktop.front(), nullptr);
}

TEST_F(PluginTest, EarlierWindowStaysOpenWithItsChanges) {
  auto plugin = create();
  plugin->setClsGlobal(services());
  plugin->setCanUpdate(true);
  plugin->ShowForm();
  controls::Form& earlier = *desktop.front();
  in<controls::EditBox>(earlier, "TXT_GM04_FTPUSER").type("anna");
  plugin->ShowForm();
  controls::Form& later = *desktop.front();
  ASSERT_NE(&earlier, &later);
  EXPECT_TRUE(desktop.shows(earlier));
  EXPECT_TRUE(user.boxes.empty());

  // Only the one that was shown last is closed by the host.
  EXPECT_EQ(plugin->CloseForm(), Value(true));
  EXPECT_FALSE(desktop.shows(later));
  EXPECT_TRUE(user.boxes.empty());
  plugin->ShowForm();

  user.answerTo = [](const ShownMessage&) { return msgbox::cancel; };
  EXPECT_FALSE(earlier.Unload());
  user.answerTo = [](const ShownMessage&) { return msgbox::yes; };
  // It is asked at the latest when the host releases the plug-in.
  plugin.reset();
  EXPECT_EQ(desktop.front(), nullptr);
  ASSERT_EQ(user.boxes.size(), 2U);
  EXPECT_EQ(user.boxes[1].text, "Salvare le modifiche apportate?");
  EXPECT_EQ(toText(engine::Session(database)
                       .execute("SELECT GM04_FTPUSER FROM GM04_PARAMETRITVRO WHERE "
                                "GM04_DITTA_CG18 = 1")
                       .front()
                       .rows.front()
                       .front()),
            "anna");
}

TEST_F(PluginTest, WindowIsShownWithoutACaptionThatIsNoText) {
  const auto plugin = create();
  plugin->setClsGlobal(services());
  plugin->setCaption(Null{});
  plugin->ShowForm();
  ASSERT_NE(desktop.front(), nullptr);
  EXPECT_EQ(desktop.front()->caption(), "");
  EXPECT_EQ(platform.trace.back(), "KVRE:|Caption|94|KEBU_ANAGKELMORIA|Invalid use of Null");
}

TEST_F(PluginTest, WorkingTablesEndWithTheWindow) {
  const auto plugin = create();
  plugin->setClsGlobal(services());
  plugin->ShowForm();
  engine::Session session(database);
  const auto exists = [&](const std::string& table) {
    return !session.execute("SELECT OBJECT_ID('tempdb..' + '" + table + "')")
                .front()
                .rows.front()
                .front()
                .isNull();
  };
  std::set<std::string> workingTables;
  for (const std::string& statement : statements.statements()) {
    if (statement.find("##tempT") != std::string::npos) {
      workingTables.insert(tests::lastWorkingTable({statement}, "##tempT"));
    }
  }
  ASSERT_EQ(workingTables.size(), 2U);
  for (const std::string& table : workingTables) EXPECT_TRUE(exists(table)) << table;
  plugin->CloseForm();
  for (const std::string& table : workingTables) EXPECT_FALSE(exists(table)) << table;
}

TEST_F(PluginTest, AWindowThatTheHostEndedAsksNothing) {
  const auto plugin = create();
  plugin->setClsGlobal(services());
  plugin->setCanUpdate(true);
  plugin->ShowForm();
  controls::Form& form = *desktop.front();
  auto& frame = dynamic_cast<controls::RecordFrame&>(*form.find("FME_ANAGRAFICA"));
  frame.setField("GM03_NOTE", "cambiata");
  ASSERT_TRUE(frame.hasPendingChanges());
  statements.clear();
  form.End();
  EXPECT_EQ(desktop.front(), nullptr);
  EXPECT_EQ(statements.statements().size(), 2U) << "the working tables are dropped";
  EXPECT_TRUE(user.boxes.empty());
  EXPECT_EQ(plugin->CloseForm(), Value(true));
}

TEST_F(PluginTest, HostThatAnswersNothingGetsAWindowAndAClearText) {
  const auto plugin = create();
  plugin->setCaption("Vuoto");
  plugin->ShowForm();
  ASSERT_NE(desktop.front(), nullptr);
  ASSERT_FALSE(platform.boxes.empty());
  EXPECT_EQ(platform.boxes.front(), (ShownMessage{"Vuoto", "Classe Log non settata", 0}));
  EXPECT_EQ(plugin->CloseForm(), Value(true));
}

TEST_F(PluginTest, NavigatorIsHeardOnlyWhileActiveAndHeld) {
  const auto navigator = makeRef<host::Navigator>();
  const Ref<host::LayoutModel> layout =
      makeRef<workbench::LayoutModel>([this](const std::string& line) { journal.push_back(line); });
  const Ref<host::ScriptModel> script =
      makeRef<workbench::ScriptModel>([this](const std::string& line) { journal.push_back(line); },
                                      [](const std::string&) { return false; });
  const auto plugin = create();
  plugin->setActiveNavigator(navigator);
  plugin->ShowForm();
  navigator->InitializeLayoutObjectModel.raise(layout);
  EXPECT_TRUE(journal.empty());

  plugin->setIsActive(true);
  plugin->ActiveFrame()->setName("altro");
  navigator->InitializeLayoutObjectModel.raise(layout);
  navigator->InitializeScriptObjectModel.raise(script);
  const std::string description = "Parametri collegamento con E-Commerce Merkal";
  EXPECT_EQ(journal,
            (std::vector<std::string>{"layout: " + description + ", kind 0, \"\"",
                                      "script: FRMKB_ANAGRAFICA, kind 0, \"" + description + "\"",
                                      "script: FME_ANAGRAFICA, kind 3, \"FME_ANAGRAFICA\""}));

  plugin->setActiveNavigator(nullptr);
  navigator->InitializeLayoutObjectModel.raise(layout);
  EXPECT_EQ(journal.size(), 3U);
}

/// A frame of the host's that keeps its name.
class NamedForGood : public host::NamedObject {
 public:
  std::string Name() const override { return "FME_OSPITE"; }
  void setName(const std::string&) override { throw RuntimeError(383, "Property is read-only"); }
};

TEST_F(PluginTest, FrameThatCannotBeRenamedIsRegisteredAllTheSame) {
  const auto navigator = makeRef<host::Navigator>();
  const auto plugin = create();
  plugin->setIsActive(true);
  plugin->setActiveNavigator(navigator);
  plugin->setActiveFrame(makeRef<NamedForGood>());
  plugin->ShowForm();
  navigator->InitializeScriptObjectModel.raise(
      makeRef<workbench::ScriptModel>([this](const std::string& line) { journal.push_back(line); },
                                      [](const std::string&) { return false; }));
  ASSERT_EQ(journal.size(), 2U);
  EXPECT_EQ(journal[1], "script: FME_OSPITE, kind 3, \"FME_OSPITE\"");
}

TEST_F(PluginTest, TransferDataPassesThrough) {
  const auto plugin = create();
  Value heard;
  plugin->DataTransfer.on([&](const Value& data) { heard = data; });
  EXPECT_TRUE(plugin->TransferData("articolo 12").isEmpty());
  EXPECT_EQ(heard, Value("articolo 12"));
}

TEST_F(PluginTest, ErrorAtTheEndIsToldInABox) {
  {
    const auto plugin = create();
    platform.traceWorks = false;
  }
  ASSERT_EQ(platform.boxes.size(), 1U);
  EXPECT_EQ(platform.boxes[0].text.substr(0, 17), "Errore VB n.5 - I");
  EXPECT_NE(platform.boxes[0].text.find(" nel Terminate della classe principale"),
            std::string::npos);
}

}  // namespace
}  // namespace kebu::plugin
