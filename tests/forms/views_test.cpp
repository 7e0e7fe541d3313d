#include "forms/anagrafica/frame/pages.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "controls/simple_controls.h"
#include "tests/support/test_workplace.h"

namespace kebu::forms {
namespace {

// The host's own side bar has no such links; a script of the host's can click them.
TEST(ViewSwitch, ANumberWithoutAPageHidesWhatIsShownAndShowsNothing) {
  tests::TestWorkplace workplace;
  workplace.open();
  controls::Form& window = *workplace.desktop().front();
  const auto isVisible = [&](std::string_view name) {
    return window.find(std::string(name))->isVisible();
  };
  auto& links = dynamic_cast<controls::SideBar&>(*window.find("SBAR_MAIN"));
  for (const std::int32_t number : {4, 5, 13, 0, -1}) {
    SCOPED_TRACE(number);
    workplace.hands().openPage(7);
    ASSERT_TRUE(isVisible("GRPMAIN_CATART") && isVisible("INAV_CATCLIART"));
    links.OnClickItemLink.raise({number, "Nessuna"});
    for (const PageEntry& page : pageTable) EXPECT_FALSE(isVisible(page.group)) << page.group;
    EXPECT_FALSE(isVisible("INAV_PAR") || isVisible("INAV_CATCLIART"));
  }
  // The number is kept all the same: a page that was shown before is shown anew.
  workplace.hands().openPage(1);
  EXPECT_TRUE(isVisible("GRPMAIN_PAR") && isVisible("INAV_PAR"));
  EXPECT_FALSE(isVisible("GRPMAIN_CATART"));
  EXPECT_TRUE(workplace.user().boxes.empty());
  workplace.close();
}

// A script of the host can click the side bar while the question is shown.
TEST(ViewSwitch, WhileTheClosingQuestionIsShownThePageStays) {
  tests::TestWorkplace workplace;
  workplace.open();
  controls::Form& window = *workplace.desktop().front();
  workplace.hands().type("TXT_GM03_DESCRIZIONE", "Da salvare");
  std::size_t questions = 0;
  workplace.user().answerTo = [&](const workbench::ShownMessage&) -> std::int32_t {
    if (++questions > 1) return msgbox::cancel;
    workplace.hands().openPage(7);
    EXPECT_TRUE(window.find("GRPMAIN_PAR")->isVisible());
    EXPECT_FALSE(window.find("GRPMAIN_CATART")->isVisible());
    return msgbox::cancel;
  };
  EXPECT_THROW(workplace.close(), std::logic_error);
  EXPECT_EQ(questions, 1U);
  // The window stays open, and pages change again.
  workplace.user().answerTo = [](const workbench::ShownMessage&) { return msgbox::no; };
  workplace.hands().openPage(7);
  EXPECT_TRUE(window.find("GRPMAIN_CATART")->isVisible());
  workplace.close();
}

}  // namespace
}  // namespace kebu::forms
