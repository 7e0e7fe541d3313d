// The plug-in's window as a host opens, uses and closes it, and what is left of it afterwards.
//
//   window_tests [GoogleTest's options] PATH\KEBU_ANAGKELMORIA.dll [OPENINGS]
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "common/convert.h"
#include "common/error.h"
#include "tests/windows/import_patch.h"
#include "tests/windows/resources.h"
#include "tests/windows/window_fixture.h"
#include "windows/views/window/window_text.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"

namespace kebu::tests {

namespace {

using workbench::WindowReader;

bool hasEntry(const std::vector<std::string>& journal, const std::string& what) {
  return std::any_of(journal.begin(), journal.end(),
                     [&](const std::string& line) { return line.find(what) != std::string::npos; });
}

TEST_F(WindowTest, OpensModeless) {
  DllHost host(*library);
  HWND parent = newHostWindow();
  host.setParent(parent);
  host->open();
  EXPECT_NE(shownForm(), nullptr) << "ShowForm returns while the window is shown";
  EXPECT_EQ(GetWindow(shownForm(), GW_OWNER), parent);
  const Ref<host::Cinterface> plugin = host->plugin();
  EXPECT_FALSE(plugin->Cwindow());
  const auto frame = plugin->ActiveFrame();
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->Name(), "FME_ANAGRAFICA");

  // The navigator's events register window and frame.
  EXPECT_TRUE(hasEntry(host.journal, "Parametri collegamento con E-Commerce Merkal"));
  EXPECT_TRUE(hasEntry(host.journal, "FRMKB_ANAGRAFICA"));
  EXPECT_TRUE(hasEntry(host.journal, "FME_ANAGRAFICA"));
  host.journal.clear();
  host.set("IsActive", "off");
  host->tellNavigator();
  EXPECT_TRUE(host.journal.empty()) << "the plug-in is not active";
  host.set("IsActive", "on");
  host->tellNavigator();
  EXPECT_EQ(host.journal.size(), 3U);
  plugin->setActiveNavigator(nullptr);
  host.journal.clear();
  host->tellNavigator();
  EXPECT_TRUE(host.journal.empty()) << "the navigator was let go";

  host->services().refuseNext("tsClose");
  EXPECT_FALSE(host->close());
  EXPECT_NE(shownForm(), nullptr);
  openPage(shownForm(), "2");
  EXPECT_TRUE(WindowReader(shownForm()).control("GRPMAIN_LISTINI").visible)
      << "a window that refused to close still works";
  EXPECT_TRUE(host->close());
  EXPECT_EQ(shownForm(), nullptr);
  DestroyWindow(parent);
}

/// Looks for the window before every statement.
class Onlooker : public workbench::StatementObserver {
 public:
  std::size_t statements = 0;
  bool wasSeen = false;

  void before(const std::string& /*text*/, bool /*edit*/) override {
    ++statements;
    HWND form = shownForm();
    wasSeen |= form && IsWindowVisible(form);
  }
  void after(const std::string& /*text*/, bool /*edit*/, std::int64_t /*rows*/,
             const RuntimeError* /*error*/) override {}
};

TEST_F(WindowTest, IsSeenWhenItIsSetUp) {
  Onlooker onlooker;
  DllHost host(*library, &onlooker);
  host->open();
  EXPECT_GT(onlooker.statements, 10);
  EXPECT_FALSE(onlooker.wasSeen);
  ASSERT_TRUE(shownForm());
  EXPECT_TRUE(IsWindowVisible(shownForm()));
  EXPECT_FALSE(GetUpdateRect(shownForm(), nullptr, FALSE)) << "it is painted at once";
  host->close();
}

TEST_F(WindowTest, AnEarlierOneStaysOpen) {
  DllHost host(*library);
  host->open();
  HWND earlier = shownForm();
  const Ref<host::Cinterface> plugin = host->plugin();
  plugin->ShowForm();
  EXPECT_TRUE(IsWindowVisible(earlier));
  EXPECT_NE(shownForm(), earlier) << "the later one is in front";
  EXPECT_TRUE(toBoolean(plugin->CloseForm()));
  ASSERT_EQ(shownForm(), earlier);
  openPage(earlier, "2");
  EXPECT_TRUE(WindowReader(earlier).control("GRPMAIN_LISTINI").visible);
  SendMessageW(earlier, WM_CLOSE, 0, 0);
  EXPECT_EQ(shownForm(), nullptr);
}

TEST_F(WindowTest, OpensModal) {
  DllHost host(*library);
  host.set("WindowModal", "on");
  bool hasReturned = false;
  bool wasShown = false;
  bool returnedBefore = true;
  soon([&] {
    wasShown = shownForm() != nullptr;
    returnedBefore = hasReturned;
    PostMessageW(shownForm(), WM_CLOSE, 0, 0);
  });
  host->open();
  hasReturned = true;
  EXPECT_TRUE(wasShown);
  EXPECT_FALSE(returnedBefore) << "ShowForm returns when the window is closed";
  EXPECT_EQ(shownForm(), nullptr);
}

std::wstring openedFile;

HINSTANCE WINAPI recordOpened(HWND, const wchar_t*, const wchar_t* file, const wchar_t*,
                              const wchar_t*, INT) {
  openedFile = file;
  return reinterpret_cast<HINSTANCE>(INT_PTR{33});
}

HWND shownList() {
  return FindWindowW(L"kebu.lookup", nullptr);
}

TEST_F(WindowTest, F1OpensTheGuideAtThePage) {
  HMODULE module = GetModuleHandleW(L"KEBU_ANAGKELMORIA.dll");
  const ImportPatch shell(module, "ShellExecuteW", recordOpened);
  DllHost host(*library);
  host->open();
  pumpWaiting();
  openPage(shownForm(), "3");
  const auto pressF1 = [] {
    openedFile.clear();
    workbench::pressKey(GetFocus(), VK_F1);
    pumpWaiting();
  };
  std::wstring title;
  soon([&] {
    title = windows::windowText(shownList());
    workbench::pressKey(GetFocus(), VK_ESCAPE);
  });
  pressF1();
  EXPECT_EQ(openedFile, L"") << "there is no guide beside the DLL";
  EXPECT_EQ(title, L"Tasti");

  const std::wstring dll = path();
  const std::wstring folder = dll.substr(0, dll.find_last_of(L"\\/")) + L"\\guida";
  const std::wstring index = folder + L"\\index.html";
  const std::wstring page = folder + L"\\pagina-3.html";
  CreateDirectoryW(folder.c_str(), nullptr);
  const std::pair<std::wstring, const wchar_t*> opened[] = {{index, L"index.html"},
                                                            {page, L"pagina-3.html"}};
  for (const auto& [file, name] : opened) {
    CloseHandle(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    pressF1();
    EXPECT_NE(openedFile.find(std::wstring(L"\\guida\\") + name), std::wstring::npos);
  }
  // From a list, too.
  openPage(shownForm(), "1");
  DeleteFileW(page.c_str());
  soon([&] {
    pressF1();
    workbench::pressKey(GetFocus(), VK_ESCAPE);
  });
  SetFocus(WindowReader(shownForm()).control("TXT_GM04_CODDOCWEB_MG36").window);
  workbench::pressKey(GetFocus(), VK_F4);
  pumpWaiting();
  EXPECT_EQ(shownList(), nullptr);
  EXPECT_NE(openedFile.find(L"\\guida\\index.html"), std::wstring::npos);
  for (const std::wstring& file : {index, page}) DeleteFileW(file.c_str());
  RemoveDirectoryW(folder.c_str());
  host->close();
}

LONG widthOf(const windows::Inspection& part) {
  return part.bounds.right - part.bounds.left;
}

TEST_F(WindowTest, ColumnsAreAsWideAsTheUserMakesThem) {
  DllHost host(*library);
  host->open();
  pumpWaiting();
  const WindowReader reader(shownForm());
  openPage(shownForm(), "2");
  constexpr std::int32_t third = 2;
  constexpr LONG further = 40;
  const auto column = [&] {
    return reader.find(windows::Inspected::Column, "QGRID_LISTINI", {"", third, 0})
        .value_or(windows::Inspection{});
  };
  const windows::Inspection head = column();
  const LONG edge = head.bounds.right - 1;
  const LONG middle = (head.bounds.top + head.bounds.bottom) / 2;
  PostMessageW(head.window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(edge, middle));
  PostMessageW(head.window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(edge + further, middle));
  PostMessageW(head.window, WM_LBUTTONUP, 0, MAKELPARAM(edge + further, middle));
  pumpWaiting();
  EXPECT_NEAR(static_cast<double>(widthOf(column())), static_cast<double>(widthOf(head) + further),
              1);
  host->close();
}

TEST_F(WindowTest, AnswersWhileTheDatabaseIsSlow) {
  SlowRules slow;
  DllHost host(*library, &slow);
  host->open();
  slow.window = shownForm();
  openPage(shownForm(), "12");
  const WindowReader reader(shownForm());
  const auto expectAnswers = [&](const char* during, const std::function<void()>& action) {
    slow.answered = 0;
    action();
    pumpWaiting();
    EXPECT_GE(slow.answered, 2) << during;
    EXPECT_EQ(slow.unanswered, 0) << during;
  };
  expectAnswers("rules are read", [&] { chooseRow("CMB_LISTINISCONTO", 1); });
  expectAnswers("all of them are selected", [&] {
    const auto box =
        reader.find(windows::Inspected::TickAll, "QGRID_SCONTOSUPREZZO", {"GM61_ATTIVA", 0, 0});
    workbench::clickOn(box.value().window, box.value().bounds);
  });
  host->close();
}

BOOL CALLBACK countStatic(HWND window, LPARAM count) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (lstrcmpiW(name, L"Static") == 0) ++*reinterpret_cast<std::size_t*>(count);
  return TRUE;
}

std::size_t staticsIn(HWND form) {
  std::size_t count = 0;
  EnumChildWindows(form, countStatic, reinterpret_cast<LPARAM>(&count));
  return count;
}

/// How often the window is opened to see that nothing is left of it.
std::size_t openings() {
  return arguments().size() > 1 ? std::stoul(arguments()[1]) : 200;
}

TEST_F(WindowTest, LeavesNothingBehind) {
  DllHost host(*library);
  std::size_t statics = 0;
  const auto openAndClose = [&] {
    host->open();
    pumpWaiting();
    statics = staticsIn(shownForm());
    openPage(shownForm(), "2");
    openPage(shownForm(), "3");
    host.journal.clear();
    ASSERT_TRUE(host->close());
  };
  constexpr int warmUp = 10;
  for (int i = 0; i < warmUp; ++i) openAndClose();
  const Resources before = usedResources();
  for (std::size_t i = 0; i < openings(); ++i) openAndClose();
  const Resources after = usedResources();
  EXPECT_EQ(after.gdiObjects, before.gdiObjects);
  EXPECT_EQ(after.userObjects, before.userObjects);
  EXPECT_EQ(after.handles, before.handles);
  // A static control of Wine's own loses 24 bytes with its font, without any of our code.
  const std::size_t slack = openings() * (std::size_t{1024} + std::size_t{24} * statics);
  EXPECT_GT(before.bytes, 0U);
  EXPECT_LT(after.bytes, before.bytes + slack) << statics << " static controls";
}

}  // namespace

}  // namespace kebu::tests
