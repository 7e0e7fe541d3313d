#include <functional>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/mdi_container.h"
#include "controls/navigator_bar.h"
#include "controls/query_editor.h"
#include "controls/query_grid.h"
#include "controls/sheet.h"
#include "controls/simple_controls.h"
#include "sql/query_predicate.h"
#include "tests/support/control_fixture.h"
#include "tests/support/no_desktop.h"

namespace kebu::controls {
namespace {

/// A change of what a control shows.
struct Change {
  const char* what;
  Control& control;
  std::function<void()> make;
};

/// Views draw again only when they are told.
void expectTold(const std::vector<Change>& changes) {
  for (const Change& change : changes) {
    int told = 0;
    const Subscription view = change.control.changed.connect([&] { ++told; });
    change.make();
    EXPECT_GT(told, 0) << change.what;
  }
}

std::string reversed(const std::string& text) {
  return {text.rbegin(), text.rend()};
}

TEST(Changed, IsRaisedByEveryControl) {
  Button button("BUTTON", "Conta");
  Label label("LABEL");
  GroupBox group("GROUP");
  StatusBar status("STATUS", 2);
  CheckBox check("CHECK");
  ResizeManager resizing("RESIZING");
  MdiContainer container("CONTAINER");
  Sheet sheet("SHEET");
  resizing.registerControl("GROUP", 15);
  expectTold({
      {"caption", button, [&] { button.setCaption("Altro"); }},
      {"translation", button, [&] { button.translate(reversed); }},
      {"enabled", button, [&] { button.setEnabled(false); }},
      {"visible", button, [&] { button.setVisible(false); }},
      {"locked", group, [&] { group.setLocked(true); }},
      {"unknown code", label, [&] { label.setUnknown(true); }},
      {"panel", status, [&] { status.setPanelText(2, "Pronto"); }},
      {"animation", status, [&] { status.setAnimated(true); }},
      {"tick", check, [&] { check.setTicked(true); }},
      {"layout", resizing, [&] { resizing.layOut(); }},
      {"owner", container, [&] { container.attach(7); }},
      {"lines", sheet,
       [&] {
         sheet.setLines({{SheetLine::Role::Note, "Nota"}});
       }},
  });
}

TEST(Changed, IsRaisedByAProgressBarAtEveryStep) {
  ProgressBar bar("BAR");
  expectTold({
      {"start", bar, [&] { bar.start(); }},
      {"start of the next work", bar, [&] { bar.start(); }},
      {"amount", bar, [&] { bar.setMaximum(10); }},
      {"position", bar, [&] { bar.setPosition(1); }},
      {"text", bar, [&] { bar.setText("Lettura"); }},
      {"place", bar, [&] { bar.moveTo(3, 4); }},
      {"order", bar, [&] { bar.bringToFront(); }},
      {"interruptible", bar, [&] { bar.setInterruptible(true); }},
      {"stop", bar, [&] { bar.stop(); }},
      {"stop of what is hidden", bar, [&] { bar.stop(); }},
  });
}

class FormOfOnePage : public Form {
 public:
  explicit FormOfOnePage(Desktop& desktop) : Form("FORM", desktop) { add(page); }
  GroupBox page{"PAGE"};
};

TEST_F(ControlTest, ChangedIsRaisedByBarsAndBoxes) {
  SideBar links("LINKS");
  NavigatorBar bar("BAR", host, {"Conferma", "Annulla"});
  ComboBox combo("COMBO");
  EditBox box("BOX");
  NoDesktop nowhere;
  FormOfOnePage form(nowhere);
  Label late("LATE");
  expectTold({
      {"new link", links, [&] { links.addLink(1, "Parametri"); }},
      {"chosen link", links, [&] { links.select(1); }},
      {"marked link", links, [&] { links.mark(1, true); }},
      {"translated links", links, [&] { links.translate(reversed); }},
      {"offered button", bar, [&] { bar.setButtonEnabled("Annulla", true); }},
      {"rights", bar,
       [&] {
         bar.setRights({true, true, true});
       }},
      {"translated buttons", bar, [&] { bar.translate(reversed); }},
      {"new entry", combo, [&] { combo.addRow("1", "Uno"); }},
      {"selected entry", combo, [&] { combo.select("1"); }},
      {"other entries", combo, [&] { combo.setRows({}); }},
      {"text", box, [&] { box.setText("a"); }},
      {"editable", box, [&] { box.setEditable(false); }},
      {"required", box, [&] { box.setRequired(true); }},
      {"hint", box, [&] { box.setHint("separati da ;"); }},
      {"place of the window", form, [&] { form.moveTo(10, 20); }},
      {"control that is added later", form, [&] { form.page.add(late); }},
  });
  box.setEditable(true);
  box.BeforeItem.on([](const std::string&, bool& cancel) { cancel = true; });
  expectTold({{"refused text", box, [&] { box.type("b"); }}});
  EXPECT_EQ(box.text(), "a");
}

TEST_F(ControlTest, ChangedIsRaisedByGridsAndEditors) {
  run("CREATE TABLE T (ID int NOT NULL PRIMARY KEY, SCELTO smallint)"
      " INSERT INTO T (ID, SCELTO) VALUES (1, 0) INSERT INTO T (ID, SCELTO) VALUES (2, 0)");
  const auto asIs = [](const std::string& text) { return text; };
  QueryGrid grid("GRID", host);
  QueryEditor editor("EDITOR", host, sql::queryComposer);
  expectTold({
      {"column", grid,
       [&] {
         grid.addColumn({"ID", "Numero", 1000}, asIs);
       }},
      {"rows", grid, [&] { grid.setDataSource(open("SELECT * FROM T ORDER BY ID")); }},
      {"current row", grid, [&] { grid.selectRow(2); }},
      {"value in place of the stored one", grid,
       [&] { grid.showInstead(1, "SCELTO", std::int16_t{1}); }},
      {"rows read again", grid, [&] { grid.refresh(); }},
      {"order", grid, [&] { grid.tools().sortBy(0); }},
      {"text that is looked for", grid, [&] { grid.tools().find("2", std::nullopt); }},
      {"nothing to look for", grid, [&] { grid.tools().find("", std::nullopt); }},
      {"order back", grid,
       [&] {
         grid.tools().sortBy(0);
         grid.tools().sortBy(0);
       }},
      {"no columns", grid, [&] { grid.clearColumns(); }},
      {"declared fields", editor, [&] { editor.completeDeclaration(); }},
  });
}

}  // namespace
}  // namespace kebu::controls
