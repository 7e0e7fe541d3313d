// The plug-in's window as a host opens, tells and closes it, and what is left of
// it afterwards.
//
//   window_check PATH\KEBU_ANAGKELMORIA.dll [OPENINGS]
#include <windows.h>
// After windows.h, which they build on.
#include <objbase.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <utility>
#include <vector>

#include "common/error.h"
#include "tests/windows/checks.h"
#include "tests/windows/dll_host.h"
#include "tests/windows/resources.h"
#include "windows/support/text.h"
#include "workbench/cli/program_words.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/plugin_library.h"
#include "workbench/windows/window_reader.h"

namespace kebu::tests {

namespace {

using workbench::WindowReader;

bool told(const std::vector<std::string>& journal, const std::string& what) {
  return std::any_of(journal.begin(), journal.end(),
                     [&](const std::string& line) { return line.find(what) != std::string::npos; });
}

void checkModeless(const workbench::PluginLibrary& library) {
  DllHost host(library);
  HWND parent = CreateWindowExW(0, L"STATIC", L"ERP", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1200,
                                800, nullptr, nullptr, nullptr, nullptr);
  host.set("hwndParent", std::to_string(static_cast<LONG>(reinterpret_cast<LONG_PTR>(parent))));
  host->open();
  expectThat(shownForm() != nullptr, "a modeless ShowForm returns with the window shown");
  expectThat(GetWindow(shownForm(), GW_OWNER) == parent, "over the host's parent window");
  const Ref<host::Cinterface> plugin = host->plugin();
  expectThat(!plugin->Cwindow(), "Cwindow yields no object all the same");
  const auto frame = plugin->ActiveFrame();
  expectThat(frame && frame->Name() == "FME_ANAGRAFICA", "ActiveFrame yields the profile's frame");
  expectThat(told(host.journal, "Parametri collegamento con E-Commerce Merkal") &&
                 told(host.journal, "FRMKB_ANAGRAFICA") && told(host.journal, "FME_ANAGRAFICA"),
             "the navigator's events register window and frame");

  host.journal.clear();
  host.set("IsActive", "off");
  host->tellNavigator();
  expectThat(host.journal.empty(), "they do nothing while the plug-in is not active");
  host.set("IsActive", "on");
  host->tellNavigator();
  expectThat(host.journal.size() == 3, "they do again when it is");
  plugin->setActiveNavigator(nullptr);
  host.journal.clear();
  host->tellNavigator();
  expectThat(host.journal.empty(), "a navigator that was let go is not heard");

  host->services().refuseNext("tsClose");
  expectThat(!host->close() && shownForm() != nullptr, "a close that is refused answers false");
  openPage(shownForm(), "2");
  expectThat(WindowReader(shownForm()).control("GRPMAIN_LISTINI").visible != FALSE,
             "and leaves a window that works");
  expectThat(host->close() && shownForm() == nullptr, "one that is not answers true");
  DestroyWindow(parent);
}

/// What happens on the timer while a modal window is shown.
std::function<void()> meanwhile;

void CALLBACK onTimer(HWND window, UINT, UINT_PTR timer, DWORD) {
  KillTimer(window, timer);
  meanwhile();
}

void checkModal(const workbench::PluginLibrary& library) {
  DllHost host(library);
  host.set("WindowModal", "on");
  bool hasReturned = false;
  bool wasShown = false;
  bool returnedBefore = true;
  meanwhile = [&] {
    wasShown = shownForm() != nullptr;
    returnedBefore = hasReturned;
    PostMessageW(shownForm(), WM_CLOSE, 0, 0);
  };
  constexpr UINT delay = 300;
  SetTimer(nullptr, 0, delay, onTimer);
  host->open();
  hasReturned = true;
  expectThat(wasShown && !returnedBefore && shownForm() == nullptr,
             "a modal ShowForm returns when the window is closed");
}

LONG heightOf(const windows::Inspection& part) {
  return part.bounds.bottom - part.bounds.top;
}
LONG widthOf(const windows::Inspection& part) {
  return part.bounds.right - part.bounds.left;
}

/// The window comes to a screen of another resolution.
void changeResolution(int dpi) {
  RECT suggested{0, 0, MulDiv(1180, dpi, USER_DEFAULT_SCREEN_DPI),
                 MulDiv(760, dpi, USER_DEFAULT_SCREEN_DPI)};
  SendMessageW(shownForm(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
               reinterpret_cast<LPARAM>(&suggested));
  pumpWaiting();
}

void checkLooks(const workbench::PluginLibrary& library) {
  DllHost host(library);
  host->open();
  pumpWaiting();
  const WindowReader reader(shownForm());
  const auto box = [&] { return reader.control("TXT_GM03_NOTE"); };
  const windows::Inspection usual = box();
  changeResolution(2 * USER_DEFAULT_SCREEN_DPI);
  expectThat(std::abs(heightOf(box()) - 2 * heightOf(usual)) <= 4,
             "a finer screen has everything larger");
  changeResolution(USER_DEFAULT_SCREEN_DPI);
  expectThat(heightOf(box()) == heightOf(usual) && widthOf(box()) == widthOf(usual),
             "and back everything is as it was");

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
  expectThat(std::abs(widthOf(column()) - widthOf(head) - further) <= 1,
             "a column is as wide as it is drawn");
  host->close();
}

/// A database that takes long over the working table of the rules on price.
class SlowRules : public workbench::StatementObserver {
 public:
  static constexpr DWORD delay = 1000;

  void before(const std::string& text, bool /*edit*/) override {
    if (text.find("##tempPrezzo") == std::string::npos) return;
    ++times;
    Sleep(delay);
  }
  void after(const std::string& /*text*/, bool /*edit*/, std::int64_t /*rows*/,
             const RuntimeError* /*error*/) override {}

  std::atomic<int> times = 0;
};

void checkBusy(const workbench::PluginLibrary& library) {
  SlowRules slow;
  DllHost host(library, &slow);
  host->open();
  openPage(shownForm(), "12");
  const WindowReader reader(shownForm());
  const auto during = [&](const char* what, const std::function<void()>& deed) {
    slow.times = 0;
    const ULONGLONG silence = longestSilence(shownForm(), [&] {
      deed();
      pumpWaiting();
    });
    std::cout << "    " << slow.times << " slow statements, " << silence << " ms without an answer"
              << std::endl;
    expectThat(slow.times >= 2 && silence < SlowRules::delay / 3, what);
  };
  during("the window answers while rules are read",
         [&] { workbench::takeFromList(reader.control("CMB_LISTINISCONTO").window, 1); });
  during("and while all of them are selected", [&] {
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
std::size_t openings = 200;

void checkResources(const workbench::PluginLibrary& library) {
  DllHost host(library);
  std::size_t statics = 0;
  const auto once = [&] {
    host->open();
    pumpWaiting();
    statics = staticsIn(shownForm());
    openPage(shownForm(), "2");
    openPage(shownForm(), "3");
    host.journal.clear();
    return host->close();
  };
  constexpr int warmUp = 10;
  const std::size_t times = openings;
  bool closed = true;
  for (int i = 0; i < warmUp; ++i) closed = once() && closed;
  const Resources before = usedResources();
  for (std::size_t i = 0; i < times; ++i) closed = once() && closed;
  const Resources after = usedResources();
  expectThat(closed, "the window opens and closes every time");
  std::cout << "    before: " << before << "\n    after:  " << after << std::endl;
  expectThat(after.gdiObjects == before.gdiObjects, "GDI objects stay flat");
  expectThat(after.userObjects == before.userObjects, "USER objects stay flat");
  expectThat(after.handles == before.handles, "handles stay flat");
  // A static control of Wine's own loses 24 bytes with its font, without any of our code.
  const std::size_t slack = times * (std::size_t{1024} + std::size_t{24} * statics);
  std::cout << "    " << statics << " static controls" << std::endl;
  expectThat(before.bytes > 0 && after.bytes < before.bytes + slack, "memory stays flat");
}

void run(const std::string& path) {
  const workbench::Apartment apartment;
  // Each with the library loaded anew: it leaves nothing behind that the next one stumbles over.
  const std::pair<const char*, void (*)(const workbench::PluginLibrary&)> parts[] = {
      {"modeless", checkModeless},
      {"modal", checkModal},
      {"looks", checkLooks},
      {"busy", checkBusy},
      {"again and again", checkResources}};
  for (const auto& [name, carryOut] : parts) {
    std::cout << name << std::endl;
    {
      const workbench::PluginLibrary library(windows::toWide(path));
      carryOut(library);
      expectThat(library.canUnload(), "nothing of the plug-in is left");
    }
    expectThat(GetModuleHandleW(L"KEBU_ANAGKELMORIA.dll") == nullptr, "the library is unloaded");
  }
}

}  // namespace

}  // namespace kebu::tests

int main(int argc, char** argv) {
  const auto words = kebu::workbench::programWords(argc, argv);
  if (words.empty() || words.size() > 2) {
    std::cout << "use: window_check DLL [OPENINGS]\n";
    return 1;
  }
  if (words.size() == 2) kebu::tests::openings = std::stoul(words[1]);
  return kebu::tests::carryOut([&] { kebu::tests::run(words[0]); });
}
