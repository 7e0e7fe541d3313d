#include "controls/simple_controls.h"

#include "tests/controls/control_fixture.h"

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

}  // namespace
}  // namespace kebu::controls
