// The plug-in's window under the keyboard and the mouse: where the focus goes, and what keys do.
#include <gtest/gtest.h>

#include "tests/windows/held_keys.h"
#include "tests/windows/window_fixture.h"
#include "workbench/engine/execution/session.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"

namespace kebu::tests {

namespace {

using windows::Inspected;
using workbench::pressKey;
using workbench::WindowReader;

class KeyboardTest : public OpenWindowTest {
 protected:
  /// Presses a key in the window, which gets the focus.
  void press(HWND window, WPARAM key) {
    SetFocus(window);
    pressKey(window, key);
    pumpWaiting();
  }
  static void pressWithControl(HWND window, WPARAM key) {
    const HeldKeys held({VK_CONTROL});
    pressKey(window, key);
    pumpWaiting();
  }
  bool isShown(const char* control) const { return reader().control(control).visible; }
};

TEST_F(KeyboardTest, LookupListsAreFilteredByTyping) {
  open();
  std::int32_t all = 0;
  std::int32_t current = 0;
  std::int32_t some = 0;
  std::int32_t none = -1;
  bool takesSome = false;
  bool takesNone = true;
  bool saysNothing = false;
  soon([&] {
    HWND list = FindWindowW(L"kebu.lookup", nullptr);
    const auto self = [&] { return WindowReader(list).find(Inspected::Control, "", {}).value(); };
    HWND const box = FindWindowExW(list, nullptr, L"Edit", nullptr);
    HWND const take = FindWindowExW(list, nullptr, L"Button", nullptr);
    HWND const hint = FindWindowExW(list, nullptr, L"Static", nullptr);
    HWND const nothing = FindWindowExW(list, hint, L"Static", nullptr);
    all = self().count;
    current = self().current;
    workbench::replaceText(box, L"CLIENTE");  // inside of descriptions, in other letters
    pumpWaiting();
    some = self().count;
    takesSome = IsWindowEnabled(take);
    workbench::replaceText(box, L"zzz");
    pumpWaiting();
    none = self().count;
    takesNone = IsWindowEnabled(take);
    saysNothing = IsWindowVisible(nothing);
    pressKey(box, VK_ESCAPE);
  });
  press(windowOf("TXT_GM04_CODDOCWEB_MG36"), VK_F4);
  pumpWaiting();
  EXPECT_GT(all, 3);
  EXPECT_GT(current, 1) << "the list opens on the code that is chosen";
  EXPECT_GT(some, 0);
  EXPECT_LT(some, all);
  EXPECT_TRUE(takesSome);
  EXPECT_EQ(none, 0);
  EXPECT_FALSE(takesNone);
  EXPECT_TRUE(saysNothing);
}

TEST_F(KeyboardTest, TheSideBarMovesAndOpens) {
  open();
  HWND const bar = windowOf("SBAR_MAIN");
  press(bar, VK_DOWN);
  EXPECT_TRUE(isShown("GRPMAIN_PAR")) << "an arrow only moves";
  press(bar, VK_RETURN);
  EXPECT_TRUE(isShown("GRPMAIN_LISTINI"));
  press(bar, VK_DOWN);
  press(bar, VK_SPACE);
  EXPECT_TRUE(isShown("GRPMAIN_GIACENZE"));
  pressWithControl(GetFocus(), '1');
  EXPECT_TRUE(isShown("GRPMAIN_PAR"));
  pressWithControl(GetFocus(), '0');
  EXPECT_TRUE(isShown("GRPMAIN_SCONTI"));
}

TEST_F(KeyboardTest, AListOpenedByMouseAndTakenByKeyStaysClosed) {
  open();
  openPage(shownForm(), "12");
  pumpWaiting();
  const windows::Inspection unused = reader().control("CMB_LISTINISCONTO");
  workbench::clickOn(unused.window, unused.bounds);
  pumpWaiting();
  HWND const combo = windowOf("CMB_LISTINISCONTO");
  EXPECT_NE(combo, unused.window);
  EXPECT_TRUE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
  press(combo, VK_DOWN);
  press(combo, VK_RETURN);
  EXPECT_EQ(reader().value("CMB_LISTINISCONTO"), "1");
  EXPECT_FALSE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
}

TEST_F(KeyboardTest, WorkBeginsInTheFirstFieldThatCanBeEdited) {
  open();
  EXPECT_EQ(GetFocus(), windowOf("TXT_GM03_CODICEDISPOSITIVO"));
  // Enter goes through the fields, and comes to no button.
  HWND const bar = windowOf("INAV_PAR");
  for (int i = 0; i < 40; ++i) {
    press(GetFocus(), VK_RETURN);
    ASSERT_FALSE(IsChild(bar, GetFocus())) << i;
  }
  EXPECT_TRUE(host->boxes().empty());
  // The tabulator comes to the bars last.
  SetFocus(windowOf("TXT_GM03_CODICEDISPOSITIVO"));
  HWND const page = GetParent(GetFocus());
  int fields = 0;
  while (IsChild(page, GetFocus()) && fields < 60) {
    press(GetFocus(), VK_TAB);
    ++fields;
  }
  EXPECT_GT(fields, 10);
  EXPECT_TRUE(GetFocus() == windowOf("SBAR_MAIN") || IsChild(bar, GetFocus()));
}

TEST_F(KeyboardTest, AComboBoxThatIsUsedKeepsItsPlaceInTheTabOrder) {
  open();
  SetFocus(windowOf("TXT_GM04_CODDOCWEB_MG36"));
  for (const char* next : {"CMB_GM04_INDTIPODEPIMP", "CBO_TIPOVALORIZZ", "TXT_NUMLIST"}) {
    press(GetFocus(), VK_TAB);
    EXPECT_EQ(GetFocus(), windowOf(next)) << next;
  }
  EXPECT_EQ(workbench::classOf(windowOf("CBO_TIPOVALORIZZ")), L"ComboBox");
  const HeldKeys back({VK_SHIFT});
  for (const char* next :
       {"CBO_TIPOVALORIZZ", "CMB_GM04_INDTIPODEPIMP", "TXT_GM04_CODDOCWEB_MG36"}) {
    press(GetFocus(), VK_TAB);
    EXPECT_EQ(GetFocus(), windowOf(next)) << "back to " << next;
  }
}

TEST_F(KeyboardTest, WorkBeginsAtTheBarWhenNothingIsLinked) {
  host.emplace(*library);
  engine::Session(host->database()).execute("DELETE FROM GM03_DISPOSITIVI");
  (*host)->open();
  pumpWaiting();
  const auto button = reader().find(Inspected::Item, "INAV_PAR", {"Nuovo", 0, 0});
  ASSERT_TRUE(button);
  EXPECT_EQ(GetFocus(), button->window);
}

}  // namespace

}  // namespace kebu::tests
