#include "windows/views/layout/page_layout.h"

#include <gtest/gtest.h>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/navigator_bar.h"
#include "controls/query_editor.h"
#include "controls/query_grid.h"
#include "tests/support/no_desktop.h"
#include "tests/support/no_host.h"
#include "windows/views/layout/frame_layout.h"

namespace kebu::windows::layout {

using namespace controls;

namespace {

/// A page with a control of each kind.
class PageLayoutTest : public testing::Test {
 protected:
  PageLayoutTest() {
    metrics.textWidth = [](const std::string& text) { return static_cast<int>(text.size()) * 6; };
    document.setDescription(description);
    document.StartLookup.on([](EditBox&) {});
    first.addAll(name, document, description, flag);
    second.add(note);
    lists.add(grid);
    update.add(button);
  }

  Placements place(GroupBox& group, int width, int height, const Rules& rules = {}) {
    return PageLayout(metrics, rules).place(group.children(), {0, 0, width, height});
  }

  static void expectNoOverlap(const Placements& placements,
                              const std::vector<const Control*>& controls) {
    for (const Control* a : controls) {
      for (const Control* b : controls) {
        if (a == b) continue;
        const Rect& x = placements.at(a).bounds;
        const Rect& y = placements.at(b).bounds;
        const bool apart = x.right() <= y.left || y.right() <= x.left || x.bottom() <= y.top ||
                           y.bottom() <= x.top;
        EXPECT_TRUE(apart) << a->Name() << " and " << b->Name();
      }
    }
  }

  tests::NoHost host;
  Metrics metrics;
  GroupBox page{"PAGE"};
  GroupBox first{"GRP_FIRST", "Dati"};
  GroupBox second{"GRP_SECOND", "Altro"};
  GroupBox lists{"GRP_LISTS", "Listini"};
  GroupBox update{"GRP_UPDATE", "Aggiornamento"};
  EditBox name{"TXT_NAME", "Descrizione"};
  EditBox document{"TXT_DOC", "Documento ordini web"};
  Label description{"LBL_DOC"};
  CheckBox flag{"CHK_FLAG", "Attivo"};
  EditBox note{"TXT_NOTE", "Note"};
  QueryGrid grid{"QGRID", host};
  Button button{"BTN_GO", "Aggiorna prezzi"};
};

TEST_F(PageLayoutTest, CaptionsAndFieldsStandInColumns) {
  page.addAll(first, second);
  const Placements placements = place(page, 500, 600);
  expectNoOverlap(placements, {&name, &document, &description, &flag, &note});
  expectNoOverlap(placements, {&first, &second});
  for (const Control* field : {static_cast<Control*>(&document), static_cast<Control*>(&note)}) {
    EXPECT_EQ(placements.at(field).bounds.left, placements.at(&name).bounds.left);
    EXPECT_EQ(placements.at(field).caption.left, placements.at(&name).caption.left);
    EXPECT_LE(placements.at(field).caption.right(), placements.at(field).bounds.left);
  }
  const Placement& code = placements.at(&document);
  EXPECT_GE(code.lookup.left, code.bounds.right());
  EXPECT_GE(placements.at(&description).bounds.left, code.lookup.right());
  EXPECT_EQ(placements.at(&description).bounds.top, code.bounds.top);
}

TEST_F(PageLayoutTest, GroupsStandSideBySideWhereThereIsRoom) {
  page.addAll(first, second);
  const Placements narrow = place(page, 500, 600);
  EXPECT_GT(narrow.at(&second).bounds.top, narrow.at(&first).bounds.bottom());
  const Placements wide = place(page, 900, 600);
  EXPECT_EQ(wide.at(&second).bounds.top, wide.at(&first).bounds.top);
  EXPECT_EQ(wide.at(&second).bounds.width, wide.at(&first).bounds.width);
}

TEST_F(PageLayoutTest, WhatGrowsTakesWhatIsLeftAndTheDockedGroupStaysBelow) {
  page.addAll(lists, update);
  const Rules rules{{"grp_lists", 15}, {"GRP_UPDATE", 13}, {"QGRID", 15}, {"BTN_GO", 9}};
  const Placements low = place(page, 800, 500, rules);
  const Placements high = place(page, 800, 700, rules);
  EXPECT_EQ(high.at(&grid).bounds.height, low.at(&grid).bounds.height + 200);
  EXPECT_EQ(high.at(&update).bounds.height, low.at(&update).bounds.height);
  EXPECT_EQ(high.at(&update).bounds.bottom(), 700);
  expectNoOverlap(high, {&lists, &update});
}

TEST_F(PageLayoutTest, ADockedGroupStaysBelowEvenWhenNothingGrows) {
  page.addAll(second, update);
  const Placements placements = place(page, 800, 700, {{"GRP_UPDATE", 13}});
  EXPECT_EQ(placements.at(&update).bounds.bottom(), 700);
  EXPECT_EQ(placements.at(&second).bounds.top, 0);
}

TEST_F(PageLayoutTest, AButtonOfTheRightSharesItsLineWithTheLabel) {
  Label updated{"LBL_DATE", "Ultimo aggiornamento"};
  page.addAll(updated, button);
  const Placements placements = place(page, 600, 400, {{"BTN_GO", 6}, {"LBL_DATE", 7}});
  EXPECT_EQ(placements.at(&button).bounds.right(), 600);
  EXPECT_EQ(placements.at(&updated).bounds.top, placements.at(&button).bounds.top);
  expectNoOverlap(placements, {&updated, &button});
}

TEST_F(PageLayoutTest, ACheckBoxBeforeAGridIsItsHeading) {
  page.addAll(name, flag, grid);
  const Placements placements = place(page, 600, 500, {{"QGRID", 15}});
  EXPECT_EQ(placements.at(&flag).bounds.left, placements.at(&grid).bounds.left);
  EXPECT_LT(placements.at(&flag).bounds.left, placements.at(&name).bounds.left);
  EXPECT_GT(placements.at(&grid).bounds.top, placements.at(&flag).bounds.bottom());
  EXPECT_EQ(placements.at(&grid).bounds.bottom(), 500);
  // Before something else it is one of the fields.
  GroupBox other{"OTHER"};
  other.addAll(flag, name);
  const Placements fields = place(other, 600, 500);
  EXPECT_EQ(fields.at(&flag).bounds.left, fields.at(&name).bounds.left);
}

TEST_F(PageLayoutTest, CheckBoxesShareALineWhereThereIsRoom) {
  CheckBox once{"CHK_ONCE", "Monouso"};
  GroupBox options{"OPTIONS"};
  options.addAll(note, flag, once);
  const Placements wide = place(options, 600, 400);
  EXPECT_EQ(wide.at(&flag).bounds.top, wide.at(&once).bounds.top);
  EXPECT_EQ(wide.at(&flag).bounds.left, wide.at(&note).bounds.left);
  expectNoOverlap(wide, {&flag, &once});
  const Placements narrow = place(options, 150, 400);
  EXPECT_GT(narrow.at(&once).bounds.top, narrow.at(&flag).bounds.top);
  EXPECT_EQ(narrow.at(&once).bounds.left, narrow.at(&flag).bounds.left);
}

TEST_F(PageLayoutTest, AComboIsAsWideAsItsLongestEntryWhereThereIsRoom) {
  ComboBox rule{"CMB_RULE", "Regola"};
  const std::string entry(100, 'x');
  rule.addRow(std::int32_t{1}, entry);
  GroupBox options{"OPTIONS"};
  options.addAll(rule);
  EXPECT_GT(place(options, 1000, 400).at(&rule).bounds.width, metrics.textWidth(entry));
  EXPECT_LE(place(options, 500, 400).at(&rule).bounds.right(), 500);
}

TEST_F(PageLayoutTest, HiddenControlsTakeNoRoom) {
  page.addAll(first, second);
  PageLayout layout(metrics, {});
  const int before = layout.naturalHeight(page.children(), 500);
  document.setVisible(false);
  EXPECT_LT(layout.naturalHeight(page.children(), 500), before);
  second.setVisible(false);
  const Placements placements = place(page, 500, 600);
  EXPECT_EQ(placements.count(&second) + placements.count(&note), 0U);
}

TEST_F(PageLayoutTest, SizesFollowTheResolution) {
  page.addAll(first, second);
  const int usual = PageLayout(metrics, {}).naturalHeight(page.children(), 500);
  Metrics twice = metrics;
  twice.dpi = 192;
  twice.lineHeight = metrics.lineHeight * 2;
  EXPECT_NEAR(PageLayout(twice, {}).naturalHeight(page.children(), 1000), 2 * usual, 4);
}

TEST_F(PageLayoutTest, AQueryEditorHasALineForEachField) {
  const QueryComposer nothing{[](const auto&, const auto&) { return std::string(); },
                              [](const auto&) { return std::string(); }};
  QueryEditor editor("EDITOR", host, nothing);
  const auto declare = [&](const char* caption, bool lookup, std::size_t length) {
    editor.addField(
        {"Standard", caption, caption, true, 0, lookup, true, false, false, false, false, length});
  };
  declare("Famiglia", true, 3);
  declare("Ragione sociale", false, 40);
  editor.completeDeclaration();
  page.add(editor);
  auto& family = editor.row(0);
  auto& business = editor.row(1);
  std::vector<const Control*> shown{
      &family.op,      &family.first,          &family.firstDescription, &business.op,
      &business.first, &editor.composedText(), &editor.countButton(),    &editor.countAnswer()};
  Placements placements = place(page, 900, 600, {{"EDITOR", 15}});
  expectNoOverlap(placements, shown);
  EXPECT_EQ(placements.at(&editor).bounds.height, 600) << "it takes what is left";
  EXPECT_EQ(placements.at(&family.op).bounds.left, placements.at(&business.op).bounds.left);
  EXPECT_EQ(placements.at(&family.op).bounds.top, placements.at(&family.first).bounds.top);
  EXPECT_GT(placements.at(&business.first).bounds.width, placements.at(&family.first).bounds.width);
  EXPECT_EQ(placements.count(&family.second), 0U);

  family.op.choose("between");
  shown.insert(shown.end(), {&family.second, &family.secondDescription});
  placements = place(page, 900, 600);
  expectNoOverlap(placements, shown);
  EXPECT_EQ(placements.at(&family.second).bounds.top, placements.at(&family.op).bounds.top);
  family.first.type("B");
  family.second.type("A");
  shown.push_back(&editor.warning());
  expectNoOverlap(place(page, 900, 600), shown);

  family.op.choose("in");
  placements = place(page, 900, 600);
  EXPECT_EQ(placements.count(&family.firstDescription), 0U) << "a list takes the line";
  family.op.choose("empty");
  EXPECT_EQ(place(page, 900, 600).count(&family.first), 0U);
}

TEST_F(PageLayoutTest, AQueryEditorUsesAWidePageForTwoColumns) {
  const QueryComposer nothing{[](const auto&, const auto&) { return std::string(); },
                              [](const auto&) { return std::string(); }};
  QueryEditor editor("EDITOR", host, nothing);
  constexpr std::size_t fields = 5;
  for (std::size_t i = 0; i < fields; ++i) {
    editor.addField({"Standard", "Famiglia", "MG66_CODFAM", true, 0, true, true, false, false,
                     false, false, 8});
  }
  editor.completeDeclaration();
  page.add(editor);
  std::vector<const Control*> shown{&editor.composedText(), &editor.countButton()};
  for (std::size_t i = 0; i < fields; ++i) {
    editor.row(i).op.choose("between");
    shown.insert(shown.end(), {&editor.row(i).op, &editor.row(i).first, &editor.row(i).second});
  }
  const auto opOf = [&](Placements& placements, std::size_t i) {
    return placements.at(&editor.row(i).op).bounds;
  };
  Placements wide = place(page, 1200, 600);
  expectNoOverlap(wide, shown);
  // Three fields stand in the first column, then two in the second one.
  EXPECT_LT(opOf(wide, 1).top, opOf(wide, 2).top);
  EXPECT_EQ(opOf(wide, 3).top, opOf(wide, 0).top);
  EXPECT_GT(opOf(wide, 3).left, wide.at(&editor.row(0).second).lookup.right());
  EXPECT_LE(wide.at(&editor.row(4).second).lookup.right(), 1200);
  Placements narrow = place(page, 800, 600);
  EXPECT_EQ(opOf(narrow, 3).left, opOf(narrow, 0).left);
  EXPECT_LT(PageLayout(metrics, {}).naturalHeight(page.children(), 1200),
            PageLayout(metrics, {}).naturalHeight(page.children(), 800));
}

TEST_F(PageLayoutTest, ABoxOfSeveralLinesTakesTheWidthAndTheirHeight) {
  note.setLines(3);
  second.add(name);
  page.add(second);
  const Placements placements = place(page, 900, 600);
  const Placement& box = placements.at(&note);
  EXPECT_EQ(box.bounds.height, placements.at(&name).bounds.height + 2 * metrics.lineHeight);
  EXPECT_GT(box.bounds.width, metrics.px(widestField));
  EXPECT_EQ(box.caption.height, placements.at(&name).caption.height) << "beside the first line";
  expectNoOverlap(placements, {&note, &name});
}

TEST_F(PageLayoutTest, TheFrameLeavesTheRestToThePage) {
  class Frame : public Form {
   public:
    Frame(Desktop& desktop, ControlHost& host)
        : Form("FRM", desktop), bar("INAV", host, {"Conferma"}), other("INAV2", host, {"Annulla"}) {
      addAll(links, title, bar, other, status);
      other.setVisible(false);
    }
    SideBar links{"SBAR"};
    TitleBar title{"TITLE"};
    NavigatorBar bar;
    NavigatorBar other;
    StatusBar status{"STATUS", 2};
  };
  NoDesktop desktop;
  const Frame form(desktop, host);
  const FrameLayout frame = placeFrame(form, metrics, {0, 0, 1000, 700});
  EXPECT_EQ(frame.bars.count(&form.other), 0U);
  EXPECT_EQ(frame.bars.at(&form.status).bounds.bottom(), 700);
  EXPECT_GT(frame.page.left, frame.bars.at(&form.links).bounds.right());
  EXPECT_GT(frame.page.top, frame.bars.at(&form.bar).bounds.bottom());
  EXPECT_LT(frame.page.bottom(), frame.bars.at(&form.status).bounds.top);
}

// However much stands on its page, a dialog's buttons are in sight.
TEST_F(PageLayoutTest, DialogButtonsStandAtTheFoot) {
  struct Dialog : Form {
    explicit Dialog(Desktop& desktop) : Form("FRM_DIALOG", desktop) {
      addAll(group, extra, ok, cancel);
      group.add(inner);
      ok.setDefault(true);
      cancel.setCancel(true);
    }
    GroupBox group{"GRP", "Gruppo"};
    Button inner{"CMD_INNER", "Nel gruppo"};
    Button extra{"CMD_EXTRA", "Altro"};
    Button ok{"CMD_OK", "OK"};
    Button cancel{"CMD_CANCEL", "Annulla"};
  };
  NoDesktop desktop;
  Dialog form(desktop);
  FrameLayout frame = placeFrame(form, metrics, {0, 0, 800, 400});
  const Placements& bars = frame.bars;
  EXPECT_EQ(bars.count(&form.inner), 0U);
  for (const Button* each : {&form.extra, &form.ok, &form.cancel}) {
    EXPECT_GT(bars.at(each).bounds.top, frame.page.bottom()) << each->Name();
    EXPECT_LT(bars.at(each).bounds.bottom(), 400) << each->Name();
  }
  EXPECT_EQ(bars.at(&form.cancel).bounds.right(), frame.page.right());
  EXPECT_LT(bars.at(&form.ok).bounds.right(), bars.at(&form.cancel).bounds.left);
  EXPECT_EQ(bars.at(&form.extra).bounds.left, frame.page.left);
  EXPECT_EQ(form.defaultButton(), &form.ok);
  // One that is hidden leaves no room behind.
  form.cancel.setVisible(false);
  frame = placeFrame(form, metrics, {0, 0, 800, 400});
  EXPECT_EQ(frame.bars.at(&form.ok).bounds.right(), frame.page.right());
}

TEST(FitInto, KeepsAWindowOnItsScreen) {
  constexpr Rect screen{1600, 0, 1200, 800};  // to the right of another one
  EXPECT_EQ(fitInto({1700, 100, 900, 600}, screen), (Rect{1700, 100, 900, 600}));
  EXPECT_EQ(fitInto({2100, 500, 900, 600}, screen), (Rect{1900, 200, 900, 600}));
  EXPECT_EQ(fitInto({1500, -50, 900, 600}, screen), (Rect{1600, 0, 900, 600}));
  EXPECT_EQ(fitInto({1700, 100, 2360, 1520}, screen), screen);
}

// Elements of control arrays with the same index share a line, whose columns line up.
TEST_F(PageLayoutTest, ControlArraysStandInATable) {
  GroupBox levels{"GRP_LEVELS", "Livelli"};
  ComboBox combos[] = {ComboBox{"CBO(0)", "Livello 1"}, ComboBox{"CBO(1)", "Livello 2"}};
  EditBox codes[] = {EditBox{"TXT_COD(0)", "Codice aggiuntivo"},
                     EditBox{"TXT_COD(1)", "Codice aggiuntivo"}};
  EditBox texts[] = {EditBox{"TXT_DESC(0)", "Descrizione"}, EditBox{"TXT_DESC(1)", "Descrizione"}};
  std::vector<const Control*> all;
  for (int i : {0, 1}) {
    levels.addAll(combos[i], codes[i], texts[i]);
    codes[i].StartLookup.on([](EditBox&) {});
    all.insert(all.end(), {&combos[i], &codes[i], &texts[i]});
  }
  for (const int width : {500, 900}) {
    Placements placements = place(levels, width, 300);
    expectNoOverlap(placements, all);
    for (int i : {0, 1}) {
      const Rect& combo = placements[&combos[i]].bounds;
      EXPECT_EQ(placements[&codes[i]].bounds.top, combo.top);
      EXPECT_EQ(placements[&texts[i]].bounds.top, combo.top);
      EXPECT_LE(placements[&codes[i]].lookup.right(), placements[&texts[i]].bounds.left);
      EXPECT_LE(placements[&texts[i]].bounds.right(), width);
      EXPECT_EQ(placements[&combos[i]].caption.top, combo.top);
      EXPECT_LT(placements[&combos[i]].caption.right(), combo.left);
    }
    for (const auto* column : {codes, texts}) {
      EXPECT_EQ(placements[&column[0]].bounds.left, placements[&column[1]].bounds.left);
      // Only the first line has heads, above the boxes.
      EXPECT_LE(placements[&column[0]].caption.bottom(), placements[&column[0]].bounds.top);
      EXPECT_FALSE(placements[&column[0]].caption.isEmpty());
      EXPECT_TRUE(placements[&column[1]].caption.isEmpty());
    }
  }
}

}  // namespace

}  // namespace kebu::windows::layout
