#include "controls/record_frame.h"

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/navigator_bar.h"
#include "controls/simple_controls.h"
#include "tests/support/control_fixture.h"

namespace kebu::controls {
namespace {

/// A parent record with one dependent row, as the profile and its parameters.
class RecordFrameTest : public ControlTest {
 protected:
  RecordFrameTest() {
    run("CREATE TABLE P (ID int IDENTITY(1,1) PRIMARY KEY, NOME varchar(20))");
    run("CREATE TABLE C (P int NOT NULL PRIMARY KEY, NUMERO int, TIPO smallint, ATTIVO smallint)");
    frame.addChild(child);
    name.bind(frame, "NOME");
    number.bind(child, "NUMERO");
    kind.bind(child, "TIPO");
    active.bind(child, "ATTIVO");
    kind.addRow(std::int32_t{1}, "Uno");
    kind.addRow(std::int32_t{2}, "Due");
    bar.setRights({true, true, true});
    bar.bind(frame);
    frame.IsRecordChanged.on([this](bool& changed) { changed |= child.isRecordChanged(); });
    child.UpdateBatchAll.on([this](bool&) { child.setField("P", frame.field("ID")); });
    frame.ChangeStatus.on([this](FrameStatus status, FrameStatus previous) {
      changes.emplace_back(static_cast<int>(status), static_cast<int>(previous));
    });
    show();
  }
  void show() {
    frame.setDataSource(open("SELECT * FROM P"));
    child.setDataSource(open("SELECT * FROM C", ado::LockType::BatchOptimistic));
  }

  RecordFrame frame{"FME", host};
  RecordFrame child{"FME_CHILD", host};
  EditBox name{"NAME", "Nome"};
  EditBox number{"NUMBER", "Numero"};
  ComboBox kind{"KIND"};
  CheckBox active{"ACTIVE"};
  NavigatorBar bar{"BAR", host, {"Nuovo", "Conferma", "Annulla", "Elimina"}};
  std::vector<std::pair<int, int>> changes;
};

TEST_F(RecordFrameTest, NewRecordIsStoredWithItsChild) {
  EXPECT_TRUE(bar.isButtonEnabled("Nuovo"));
  bar.press("Nuovo");
  EXPECT_FALSE(bar.isButtonEnabled("Nuovo"));
  name.type("negozio");
  number.type("12");
  kind.choose("2");
  active.tick(true);
  bar.press("Conferma");
  EXPECT_EQ(first("SELECT NOME FROM P"), "negozio");
  EXPECT_EQ(first("SELECT P * 1000 + NUMERO + TIPO * 100 + ATTIVO FROM C"), "1213");
  EXPECT_EQ(changes, (std::vector<std::pair<int, int>>{{2, 0}, {7, 2}, {0, 7}}));
  EXPECT_FALSE(bar.isButtonEnabled("Conferma"));
}

TEST_F(RecordFrameTest, EditingTheChildAloneIsAPendingChangeOfTheRecord) {
  run("INSERT INTO P (NOME) VALUES ('a') INSERT INTO C VALUES (1, 5, 1, 0)");
  show();
  number.type("6");
  EXPECT_EQ(frame.status(), FrameStatus::Editing);
  EXPECT_TRUE(bar.isButtonEnabled("Conferma"));
  bar.press("Annulla");
  EXPECT_EQ(number.text(), "5");
  EXPECT_EQ(first("SELECT NUMERO FROM C"), "5");
}

TEST_F(RecordFrameTest, RefusedSaveKeepsThePendingChange) {
  run("INSERT INTO P (NOME) VALUES ('a')");
  show();
  bool refuse = true;
  frame.BeforeUpdate.on([&](bool& cancel) { cancel = refuse; });
  name.type("b");
  bar.press("Conferma");
  EXPECT_EQ(first("SELECT NOME FROM P"), "a");
  EXPECT_EQ(frame.status(), FrameStatus::Editing);
  refuse = false;
  bar.press("Conferma");
  EXPECT_EQ(first("SELECT NOME FROM P"), "b");
}

TEST_F(RecordFrameTest, FailedWriteCanBeRetriedOrLeftAndMadeGoodLater) {
  faults.failing = "INSERT INTO [P]";
  name.type("nuovo");  // begins the record by itself
  bar.press("Conferma");
  EXPECT_EQ(host.errors, (std::vector<std::string>{"FME: made to fail"}));
  EXPECT_EQ(frame.status(), FrameStatus::New);
  EXPECT_EQ(name.text(), "nuovo");
  faults.failing.clear();
  bar.press("Conferma");
  EXPECT_EQ(first("SELECT COUNT(*) FROM P"), "1");
  EXPECT_EQ(first("SELECT COUNT(*) FROM C"), "1");
}

TEST_F(RecordFrameTest, QuestionAboutPendingChangesSavesDiscardsOrStays) {
  run("INSERT INTO P (NOME) VALUES ('a')");
  show();
  frame.ConcludiModifiche(true);
  EXPECT_TRUE(host.messages.empty());
  name.type("b");
  host.answer = msgbox::cancel;
  frame.ConcludiModifiche(true);
  EXPECT_EQ(frame.status(), FrameStatus::Editing);
  host.answer = msgbox::no;
  frame.ConcludiModifiche(true);
  EXPECT_EQ(name.text(), "a");
  name.type("c");
  host.answer = msgbox::yes;
  frame.ConcludiModifiche(true);
  EXPECT_EQ(first("SELECT NOME FROM P"), "c");
}

TEST_F(RecordFrameTest, WrongAndMissingValuesAreToldAndLoseNothing) {
  run("INSERT INTO P (NOME) VALUES ('a') INSERT INTO C VALUES (1, 5, 1, 0)");
  show();
  number.type("molti");
  EXPECT_EQ(number.text(), "5");
  number.setRequired(true);
  number.type("");
  bar.press("Conferma");
  EXPECT_EQ(host.messages,
            (std::vector<std::string>{"Valore non valido: \"molti\". Numero: numero intero.",
                                      "Indicare un valore per \"Numero\"."}));
  EXPECT_EQ(first("SELECT NUMERO FROM C"), "5");
}

TEST_F(RecordFrameTest, DeletionAsksAndEmptiesThePage) {
  run("INSERT INTO P (NOME) VALUES ('a')");
  show();
  host.answer = msgbox::no;
  bar.press("Elimina");
  EXPECT_EQ(first("SELECT COUNT(*) FROM P"), "1");
  host.answer = msgbox::yes;
  bar.press("Elimina");
  EXPECT_EQ(first("SELECT COUNT(*) FROM P"), "0");
  EXPECT_EQ(name.text(), "");
  EXPECT_FALSE(frame.hasRecord());
  EXPECT_TRUE(bar.isButtonEnabled("Nuovo"));
}

TEST_F(RecordFrameTest, DecodingFollowsTheCode) {
  run("INSERT INTO P (NOME) VALUES ('01')");
  Label description("DESCRIPTION");
  int asked = 0;
  name.setDescription(description);
  name.StartDecode.on([&](const std::string& code, std::string& text) {
    ++asked;
    text = "Deposito " + code;
  });
  show();
  EXPECT_EQ(description.caption(), "Deposito 01");
  show();
  EXPECT_EQ(asked, 1);
  name.type("");
  EXPECT_EQ(description.caption(), "");
}

TEST_F(RecordFrameTest, APageMayRuleTheBarWithinTheUsersRights) {
  run("INSERT INTO P (NOME) VALUES ('a')");
  show();
  bar.setRights({false, true, false});
  bar.setFollowsFrame(false);
  bar.setButtonEnabled("Conferma", true);
  bar.setButtonEnabled("Elimina", true);
  name.type("b");
  EXPECT_TRUE(bar.isButtonEnabled("Conferma"));
  EXPECT_FALSE(bar.isButtonEnabled("Elimina"));
  EXPECT_FALSE(bar.isButtonEnabled("Annulla"));  // though the frame has a pending change
  bar.setRights({false, false, true});
  EXPECT_FALSE(bar.isButtonEnabled("Conferma"));
  EXPECT_TRUE(bar.isButtonEnabled("Elimina"));
  bar.setRights({true, true, true});
  bar.setFollowsFrame(true);
  EXPECT_TRUE(bar.isButtonEnabled("Annulla"));
}

// Even when a control was not locked, nothing is begun, saved or deleted without the right to it.
TEST_F(RecordFrameTest, ActsOnlyWithinTheUsersRights) {
  run("INSERT INTO P (NOME) VALUES ('negozio')");
  show();
  frame.setRights({.canInsert = true, .canUpdate = false, .canDelete = false});
  frame.markModified();
  EXPECT_EQ(frame.status(), FrameStatus::Browsing);
  frame.Delete();
  frame.setRights({.canInsert = true, .canUpdate = true, .canDelete = false});
  name.type("altro");
  frame.setRights({.canInsert = true, .canUpdate = false, .canDelete = false});
  frame.Update();
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(first("SELECT NOME FROM P"), "negozio");
}

TEST_F(RecordFrameTest, TellsOfARecordThatSomebodyElseDeleted) {
  run("INSERT INTO P (NOME) VALUES ('negozio')");
  show();
  int conflicts = 0;
  frame.Conflict.on([&] { ++conflicts; });
  name.type("altro");
  run("DELETE FROM P");
  frame.Update();
  EXPECT_EQ(conflicts, 1);
  EXPECT_TRUE(host.errors.empty());
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(name.text(), "altro");
  EXPECT_EQ(first("SELECT COUNT(*) FROM P"), "0");
}

TEST_F(RecordFrameTest, RefusesDecimalsInAWholeNumberAndSaysWhatItTakes) {
  bar.press("Nuovo");
  number.type("12");
  number.type("1,5");
  EXPECT_EQ(host.messages,
            std::vector<std::string>{"Valore non valido: \"1,5\". Numero: numero intero."});
  EXPECT_EQ(number.text(), "12");
  name.type("un nome troppo lungo per la colonna");
  EXPECT_EQ(host.messages.back(),
            "Valore non valido: \"un nome troppo lungo per la colonna\". Nome: testo, caratteri al "
            "massimo: 20.");
}

}  // namespace
}  // namespace kebu::controls
