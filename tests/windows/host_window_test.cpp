// The plug-in's window when the host destroys its own, or ends.
#include <gtest/gtest.h>

#include "tests/windows/window_fixture.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"

namespace kebu::tests {

namespace {

using workbench::WindowReader;

/// Counts the statements that drop a working table.
class DroppedTables : public workbench::StatementObserver {
 public:
  void before(const std::string& text, bool /*edit*/) override {
    if (text.find("DROP TABLE") != std::string::npos) ++count;
  }
  void after(const std::string& /*text*/, bool /*edit*/, std::int64_t /*rows*/,
             const RuntimeError* /*error*/) override {}

  int count = 0;
};

class HostWindowTest : public WindowTest {
 protected:
  /// Changes the profile, so that closing the window would ask whether to save it.
  void changeProfile() {
    pumpWaiting();
    typeInto("TXT_GM03_NOTE", L"cambiata");
    const auto save =
        WindowReader(shownForm()).find(windows::Inspected::Item, "INAV_PAR", {"Conferma", 0, 0});
    EXPECT_TRUE(save && save->enabled);
    dropped.count = 0;
  }
  /// The window is gone, its Form_Unload ran, and nobody was asked.
  void expectEnded() {
    EXPECT_EQ(shownForm(), nullptr);
    EXPECT_EQ(dropped.count, 2) << "working tables";
    EXPECT_EQ(host.boxes(), std::vector<std::string>{});
    EXPECT_TRUE(host->close()) << "the host may still call CloseForm";
  }

  DroppedTables dropped;
  DllHost host{*library, &dropped};
};

TEST_F(HostWindowTest, AModelessWindowEndsWithItsOwner) {
  HWND owner = newHostWindow();
  host.setParent(owner);
  host->open();
  changeProfile();
  DestroyWindow(owner);
  expectEnded();
}

TEST_F(HostWindowTest, AModelessWindowEndsWithTheContainerInsideTheHostsWindow) {
  HWND main = newHostWindow();
  HWND container = newHostWindow(newHostWindow(main));
  host.setParent(container);
  host->open();
  changeProfile();
  DestroyWindow(GetParent(container));
  expectEnded();
  DestroyWindow(main);
}

TEST_F(HostWindowTest, AModalWindowReturnsWhenItsOwnerEnds) {
  HWND owner = newHostWindow();
  host.setParent(owner);
  host.set("WindowModal", "on");
  soon([&] {
    changeProfile();
    DestroyWindow(owner);
  });
  host->open();
  expectEnded();
}

TEST_F(HostWindowTest, AListOverTheWindowEndsFirst) {
  HWND owner = newHostWindow();
  host.setParent(owner);
  host->open();
  changeProfile();
  bool wasOpen = false;
  soon([&] {
    wasOpen = FindWindowW(L"kebu.lookup", nullptr) != nullptr;
    DestroyWindow(owner);
  });
  const auto button =
      WindowReader(shownForm()).find(windows::Inspected::Lookup, "TXT_GM04_CODDOCWEB_MG36", {});
  ASSERT_TRUE(button);
  workbench::clickOn(button->window, button->bounds);
  pumpWaiting();
  EXPECT_TRUE(wasOpen);
  expectEnded();
}

TEST_F(WindowTest, TheEndOfTheProgramIsNotLostWhileAStatementRuns) {
  SlowRules slow;
  DllHost host(*library, &slow);
  host->open();
  slow.window = shownForm();
  openPage(shownForm(), "12");
  chooseRow("CMB_LISTINISCONTO", 1);
  constexpr int code = 7;
  PostQuitMessage(code);
  int met = 0;
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) met = static_cast<int>(message.wParam);
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  EXPECT_GE(slow.answered, 1);
  EXPECT_EQ(met, code);
  host->close();
}

}  // namespace

}  // namespace kebu::tests
