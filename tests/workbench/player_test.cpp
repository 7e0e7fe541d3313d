#include "workbench/player/player.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include "tests/workbench/sample_plugin.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/player/model_workplace.h"

namespace kebu::workbench {
namespace {

class PlayerTest : public testing::Test {
 protected:
  bool play(const std::string& text) {
    return player.play(Scenario::parse("x.scenario", text), workplace.stage(faults));
  }
  bool wrote(const std::string& text) const { return out.str().find(text) != std::string::npos; }
  std::int32_t ask(std::int32_t style, const std::string& text = "Salvare?") {
    return player.answer({"Esempio", text, style});
  }

  std::ostringstream out;
  std::ostringstream err;
  Player player{out, err};
  StatementFaults faults;
  /// What the window does when its button is clicked.
  std::function<void()> onClick;
  std::weak_ptr<SampleForm> form;
  ModelWorkplace workplace{{
      .user = player,
      .database = engine::Database::createInMemory(),
      .createPlugin =
          [this](const forms::Runtime& runtime) {
            auto plugin = makeRef<SamplePlugin>(runtime.desktop);
            form = plugin->form;
            plugin->form->button.ButtonClick.on([this] {
              if (onClick) onClick();
            });
            return plugin;
          },
  }};
  controls::Desktop& desktop = workplace.runtime().desktop;
};

TEST_F(PlayerTest, OpensActsChecksAndCloses) {
  EXPECT_TRUE(
      play("set Caption Prova\nopen\ntype TXT_CODE 020\nexpect TXT_CODE = 020\n"
           "expect TXT_CODE editable = on\nexpect FRM_SAMPLE caption = Prova\n"
           "expect CHK_FLAG = off\nexpect INAV_MAIN Annulla enabled = false\nclose"));
  EXPECT_EQ(err.str(), "");
  EXPECT_TRUE(wrote("true\n"));
  EXPECT_TRUE(wrote("ok: 5 expectations met"));
  EXPECT_TRUE(form.expired()) << "the host lets a plug-in go whose window is gone";
}

TEST_F(PlayerTest, AWrongLineEndsTheScenario) {
  const std::pair<const char*, const char*> cases[] = {
      {"jump", "unknown step \"jump\""},
      {"click", "wrong number of arguments, use: click BUTTON"},
      {"click A B", "wrong number of arguments, use: click BUTTON"},
      {"click BTN_NONE", "FRM_SAMPLE has no control BTN_NONE"},
      {"press INAV_MAIN Annulla", "\"Annulla\" of INAV_MAIN is disabled"},
      {"page two", "\"two\" is not a number"},
      {"tick CHK_FLAG maybe", "\"maybe\" is neither on nor off"},
      {"answer perhaps", "no message box has a button \"perhaps\""},
      {"fail X 0", "a statement fails at least once"},
      {"open", "the window is open already"},
      {"set Nothing 1", "the host knows no property Nothing"},
      {"set ActiveDll 1", "ActiveDll cannot be set to a text"},
      {"without doors", "the host has no service \"doors\""},
      {"expect TXT_CODE 010", "nothing is stated: an expectation ends in = VALUE"},
      {"expect TXT_CODE colour = red", "controls have no \"colour\""},
      {"expect TXT_CODE rows = 1", "TXT_CODE is not a grid"},
      {"lookup TXT_CODE", "TXT_CODE has no look-up"},
      {"condition ENHQUERY_CLI Codice = 1", "FRM_SAMPLE has no control ENHQUERY_CLI"},
      {"condition TXT_CODE Codice = 1", "TXT_CODE has no field \"Codice\""},
      {"condition TXT_CODE Codice like 1", "\"like\" is no operator of a query editor"},
      {"condition TXT_CODE Codice = 1 2", "too many values for the operator ="},
      {"lookup ENHQUERY_CLI Codice 1", "FRM_SAMPLE has no control ENHQUERY_CLI"},
  };
  ASSERT_TRUE(play("open"));
  for (const auto& [line, message] : cases) {
    std::ostringstream complaint;
    Player fresh(out, complaint);
    EXPECT_FALSE(fresh.play(
        Scenario::parse("x.scenario", std::string("# first\n") + line + "\ntick CHK_FLAG on"),
        workplace.stage(faults)));
    EXPECT_EQ(complaint.str(), "x.scenario:2: " + std::string(message) + "\n");
    EXPECT_FALSE(form.lock()->check.isTicked()) << "a line was played after " << line;
  }
}

TEST_F(PlayerTest, AnUnmetExpectationIsToldAndTheScenarioGoesOn) {
  EXPECT_FALSE(play("open\nexpect TXT_CODE = 99\nexpect message Salvato\ntick CHK_FLAG on"));
  EXPECT_EQ(err.str(),
            "x.scenario:2: TXT_CODE: expected \"99\", found \"010\"\n"
            "x.scenario:3: message: expected \"Salvato\", found \"\"\n"
            "x.scenario: 2 of 2 expectations not met\n");
  EXPECT_TRUE(form.lock()->check.isTicked());
}

TEST_F(PlayerTest, AMaskedTextIsNotToldByAFailingCheck) {
  EXPECT_FALSE(play("open\nexpect TXT_PWD = x\nprint TXT_PWD"));
  EXPECT_EQ(err.str().find("segreto"), std::string::npos);
  EXPECT_FALSE(wrote("segreto"));
}

TEST_F(PlayerTest, BoxesArePrintedAnsweredAndRemembered) {
  std::int32_t pressed = 0;
  onClick = [&] {
    pressed = ask(msgbox::yesNoCancel | msgbox::question, "Salvare\r\nle modifiche?");
    ask(msgbox::information, "Fatto.");
  };
  EXPECT_TRUE(
      play("open\nanswer no\nclick BTN_GO\nexpect message 'le modifiche'\n"
           "expect message Fatto\nexpect no message"));
  EXPECT_EQ(pressed, msgbox::no);
  EXPECT_TRUE(
      wrote("  [ Esempio ] question\n  | Salvare\n  | le modifiche?\n"
            "  [yes] no cancel -> no\n"));
  EXPECT_TRUE(wrote("  [ok] -> ok (default)\n"));
  EXPECT_FALSE(play("expect message Fatto")) << "a box counts for one check only";
}

TEST_F(PlayerTest, RetryingForEverFailsTheScenario) {
  int attempts = 0;
  onClick = [&] {
    do ++attempts;
    while (ask(4370, "Errore n. 13") == msgbox::retry && attempts < 1000);
  };
  EXPECT_FALSE(play("open\nclick BTN_GO\ntick CHK_FLAG on"));
  EXPECT_EQ(attempts, 11);
  EXPECT_EQ(err.str(), "x.scenario:2: the same error came back after 10 retries\n");
  EXPECT_FALSE(form.lock()->check.isTicked());
}

TEST_F(PlayerTest, ALookUpTakesTheRowThatTheStepNames) {
  const Ref<ado::Connection> connection = newConnection(workplace.database(), nullptr);
  connection->Open();
  ASSERT_TRUE(play("open"));
  form.lock()->box.StartLookup.on([&](controls::EditBox& box) {
    controls::LookupList list("Elenco", {"Codice", "Descrizione"},
                              connection->Execute("SELECT 'A', 'uno' UNION ALL SELECT 'B', 'due'"));
    desktop.runLookup(list);
    if (const auto code = list.chosen()) box.enter(*code);
  });
  EXPECT_TRUE(
      play("lookup TXT_CODE\nexpect TXT_CODE = 010\nlookup TXT_CODE 2\nexpect TXT_CODE = B"));
  EXPECT_TRUE(wrote("  2  B       due\n"));
  EXPECT_FALSE(play("lookup TXT_CODE 3\ntype TXT_CODE C"));
  EXPECT_EQ(err.str(), "x.scenario:1: \"Elenco\" has no row 3\n");
  EXPECT_EQ(form.lock()->box.text(), "B");
}

TEST_F(PlayerTest, ALookUpThatShowsNoListHasNoRowToTake) {
  ASSERT_TRUE(play("open"));
  form.lock()->box.StartLookup.on([](controls::EditBox&) {});
  EXPECT_TRUE(play("lookup TXT_CODE"));
  EXPECT_FALSE(play("lookup TXT_CODE 1"));
  EXPECT_EQ(err.str(), "x.scenario:1: no list was opened\n");
}

TEST_F(PlayerTest, InAModalWindowTheFollowingLinesAct) {
  const auto dialog = std::make_shared<SampleForm>(desktop);
  dialog->setName("FRM_DIALOG");
  dialog->button.ButtonClick.on([&] { dialog->Unload(); });
  std::string entered;
  onClick = [&] {
    dialog->Show(true);
    entered = dialog->box.text();
  };
  EXPECT_TRUE(
      play("open\nclick BTN_GO\ntype TXT_CODE 777\nexpect FRM_DIALOG caption = Esempio\n"
           "click BTN_GO\nexpect TXT_CODE = 010"));
  EXPECT_EQ(entered, "777");
}

TEST_F(PlayerTest, TheScenariosEndLeavesAModalWindow) {
  const auto dialog = std::make_shared<SampleForm>(desktop);
  bool left = false;
  onClick = [&] {
    dialog->Show(true);
    left = true;
  };
  EXPECT_FALSE(play("open\nclick BTN_GO\ntype TXT_NONE 1\nclick BTN_GO"));
  EXPECT_TRUE(left);
  EXPECT_EQ(err.str(), "x.scenario:3: FRM_SAMPLE has no control TXT_NONE\n");
}

TEST_F(PlayerTest, AModalMainWindowCanBeClosedFromWithin) {
  EXPECT_TRUE(
      play("set WindowModal on\nopen\nexpect TXT_CODE = 010\nclose\nset WindowModal off\n"
           "open\nexpect TXT_CODE = 010"));
  EXPECT_EQ(err.str(), "");
}

TEST_F(PlayerTest, AnErrorThatEscapesEndsTheScenario) {
  onClick = [] { throw RuntimeError(3021, "Either BOF or EOF is True."); };
  EXPECT_FALSE(play("open\nclick BTN_GO"));
  EXPECT_EQ(err.str(), "x.scenario:2: error 3021: Either BOF or EOF is True.\n");
}

}  // namespace
}  // namespace kebu::workbench
