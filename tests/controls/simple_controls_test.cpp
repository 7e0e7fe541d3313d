#include "controls/simple_controls.h"

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/navigator_bar.h"
#include "tests/support/control_fixture.h"

namespace kebu::controls {
namespace {

TEST(GroupBox, ControlsWithinShareItsStateAndRefuseGesturesOutOfReach) {
  GroupBox page("PAGE");
  GroupBox inner("INNER");
  Button button("BUTTON");
  page.add(inner);
  inner.add(button);
  int clicks = 0;
  button.ButtonClick.on([&] { ++clicks; });
  button.click();
  page.setEnabled(false);
  EXPECT_THROW(button.click(), GestureRefused);
  EXPECT_TRUE(button.isShown());
  page.setEnabled(true);
  inner.setVisible(false);
  EXPECT_FALSE(button.isShown());
  EXPECT_THROW(button.click(), GestureRefused);
  EXPECT_EQ(clicks, 1);
}

TEST(SideBar, ClickNamesTheLinkAndChoosesNothingByItself) {
  SideBar bar("BAR");
  bar.addLink(1, "Parametri");
  bar.addLink(3, "Depositi");
  bar.selectFirst();
  std::string clicked;
  bar.OnClickItemLink.on([&](const SideBar::Link& link) { clicked = link.text; });
  bar.click(3);
  EXPECT_EQ(clicked, "Depositi");
  EXPECT_EQ(bar.selected()->view, 1);
  EXPECT_THROW(bar.click(2), GestureRefused);
  bar.select(3);
  bar.select(9);  // a view without a link leaves the choice
  EXPECT_EQ(bar.selected()->view, 3);
  bar.mark(3, true);
  int drawn = 0;
  bar.changed.on([&] { ++drawn; });
  bar.mark(3, true);
  bar.mark(9, true);
  EXPECT_EQ(drawn, 0);
}

TEST(ResizeManager, AsksForItsRegistrationsOnce) {
  ResizeManager manager("RESIZE");
  int asked = 0;
  manager.Setup.on([&](ResizeManager& m) {
    ++asked;
    m.registerControl("GRPMAIN_PAR", 15);
  });
  manager.layOut();
  manager.layOut();
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(manager.registrations().size(), 1U);
}

TEST(CheckBox, TellsOfEveryChangeAndWhichAreTheUsers) {
  CheckBox box("BOX");
  int clicks = 0;
  int changes = 0;
  box.Click.on([&] { ++clicks; });
  box.AfterChange.on([&] { ++changes; });
  box.setTicked(false);
  EXPECT_EQ(clicks, 0);
  box.setTicked(true);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(changes, 0);
  box.tick(false);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(changes, 1);
}

TEST(ProgressBar, LooksDifferentAtWholePercents) {
  ProgressBar bar("BAR");
  bar.start();
  EXPECT_EQ(bar.percent(), std::nullopt);
  EXPECT_EQ(bar.detail(), "");
  EXPECT_FALSE(bar.setPosition(1));
  bar.setMaximum(1000);
  int drawn = 0;
  bar.changed.on([&] { ++drawn; });
  for (std::int32_t done = 1; done <= 1000; ++done) bar.setPosition(done);
  EXPECT_EQ(drawn, 100);
  EXPECT_EQ(bar.percent(), 100);
  EXPECT_EQ(bar.detail(), "1.000 di 1.000");
  bar.stop();
  EXPECT_EQ(bar.detail(), "");
  bar.start();
  EXPECT_EQ(bar.percent(), std::nullopt);
}

TEST(ComboBox, ShowsAStoredCodeThatIsNotOfferedAsLongAsItStays) {
  ComboBox combo("COMBO");
  combo.addRow(std::int16_t{0}, "Seleziona...");
  combo.addRow(std::int16_t{4}, "Quattro");
  combo.setText("4");
  EXPECT_EQ(combo.selected()->caption, "Quattro");
  combo.setText("15");
  EXPECT_EQ(combo.text(), "15");
  EXPECT_EQ(combo.rows().size(), 3U);
  combo.setText("16");
  EXPECT_EQ(combo.text(), "16");
  EXPECT_EQ(combo.rows().size(), 3U);
  combo.choose("4");
  EXPECT_EQ(combo.text(), "4");
  EXPECT_EQ(combo.rows().size(), 2U);
  EXPECT_THROW(combo.choose("15"), GestureRefused);
  combo.setText("15");
  combo.setText("");
  EXPECT_EQ(combo.text(), "");
  EXPECT_EQ(combo.rows().size(), 2U);
}

TEST_F(ControlTest, ABarWithoutAFrameOffersWhatItsPageChanged) {
  NavigatorBar bar("BAR", host, {"Conferma", "Annulla"});
  bar.setRights({true, true, true});
  EXPECT_FALSE(bar.isButtonEnabled("Conferma"));
  bar.setModified(true);
  EXPECT_TRUE(bar.isButtonEnabled("Conferma"));
  EXPECT_TRUE(bar.isButtonEnabled("Annulla"));
  bar.setRights({true, false, true});
  EXPECT_FALSE(bar.isButtonEnabled("Conferma"));
  EXPECT_TRUE(bar.isButtonEnabled("Annulla"));
  bar.setModified(false);
  EXPECT_FALSE(bar.isButtonEnabled("Annulla"));
}

}  // namespace
}  // namespace kebu::controls
