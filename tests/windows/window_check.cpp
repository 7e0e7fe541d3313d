// The plug-in's window as a host opens, tells and closes it, and what is left of
// it afterwards.
//
//   window_check PATH\KEBU_ANAGKELMORIA.dll
#include <windows.h>
// After windows.h, which they build on.
#include <objbase.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <memory>
#include <utility>
#include <vector>

#include "common/error.h"
#include "tests/windows/checks.h"
#include "tests/windows/resources.h"
#include "windows/support/text.h"
#include "workbench/company_file.h"
#include "workbench/engine/ado_objects.h"
#include "workbench/host/stand_in_host.h"
#include "workbench/program_words.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/class_objects.h"
#include "workbench/windows/dll_plugin.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/plugin_library.h"
#include "workbench/windows/window_reader.h"

namespace kebu::tests {

namespace {

using windows::Inspected;
using workbench::WindowReader;

/// Takes the usual button of every box.
class QuietUser : public workbench::User {
 public:
  std::int32_t answer(const workbench::ShownMessage& box) override {
    std::cout << "    box: " << box.text << std::endl;
    return workbench::defaultButton(box.style);
  }
  void chooseFrom(workbench::ShownList&) override {}
  void workIn(controls::Form&) override {}
};

BOOL CALLBACK findForm(HWND window, LPARAM context) {
  if (!IsWindowVisible(window) || !WindowReader(window).find(Inspected::Control, "", {})) {
    return TRUE;
  }
  *reinterpret_cast<HWND*>(context) = window;
  return FALSE;
}

/// The plug-in's window; null while none is shown.
HWND shownForm() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), findForm, reinterpret_cast<LPARAM>(&found));
  return found;
}

/// Lets the windows do what waits for them.
void pumpWaiting() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

/// A click on the link of a page.
void openPage(HWND form, const std::string& view) {
  const auto link = WindowReader(form).find(Inspected::Item, "SBAR_MAIN", {view, 0, 0});
  if (link) workbench::clickOn(link->window, link->bounds);
  pumpWaiting();
}

/// A host with the plug-in that lies beside the workbench.
class Host {
 public:
  explicit Host(const workbench::PluginLibrary& library)
      : stand_([&library] { return workbench::newPlugin(library); },
               {user_, company_, 1, {}, [this](const std::string& told) {
                  journal.push_back(told);
                }}) {}

  workbench::StandInHost* operator->() { return &stand_; }
  void set(const char* property, const std::string& value) {
    stand_.set(*workbench::findHostProperty(property), value);
  }

  std::vector<std::string> journal;

 private:
  QuietUser user_;
  std::shared_ptr<engine::Database> database_ = workbench::demoCompany();
  workbench::CompanyDatabase company_ = workbench::embeddedCompany(database_, nullptr);
  engine::Library objects_;
  workbench::ClassObjects classes_{objects_, company_.forPlugin};
  workbench::StandInHost stand_;
};

bool told(const std::vector<std::string>& journal, const std::string& what) {
  return std::any_of(journal.begin(), journal.end(),
                     [&](const std::string& line) { return line.find(what) != std::string::npos; });
}

void checkModeless(const workbench::PluginLibrary& library) {
  Host host(library);
  host->open();
  expectThat(shownForm() != nullptr, "a modeless ShowForm returns with the window shown");
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
}

/// What happens on the timer while a modal window is shown.
std::function<void()> meanwhile;

void CALLBACK onTimer(HWND window, UINT, UINT_PTR timer, DWORD) {
  KillTimer(window, timer);
  meanwhile();
}

void checkModal(const workbench::PluginLibrary& library) {
  Host host(library);
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

void checkResources(const workbench::PluginLibrary& library) {
  Host host(library);
  const auto once = [&] {
    host->open();
    pumpWaiting();
    openPage(shownForm(), "2");
    openPage(shownForm(), "3");
    host.journal.clear();
    return host->close();
  };
  constexpr int warmUp = 10;
  constexpr int times = 200;
  bool closed = true;
  for (int i = 0; i < warmUp; ++i) closed = once() && closed;
  const Resources before = usedResources();
  for (int i = 0; i < times; ++i) closed = once() && closed;
  const Resources after = usedResources();
  expectThat(closed, "the window opens and closes 210 times");
  std::cout << "    before: " << before << "\n    after:  " << after << std::endl;
  expectThat(after.gdiObjects == before.gdiObjects, "GDI objects stay flat");
  expectThat(after.userObjects == before.userObjects, "USER objects stay flat");
  expectThat(after.handles == before.handles, "handles stay flat");
  // A static control of Wine's own loses 24 bytes with its font, and a window has some thirty.
  constexpr std::size_t slack = times * std::size_t{1024};
  expectThat(before.bytes > 0 && after.bytes < before.bytes + slack, "memory stays flat");
}

void run(const std::string& path) {
  const workbench::Apartment apartment;
  // Each with the library loaded anew: it leaves nothing behind that the next one stumbles over.
  const std::pair<const char*, void (*)(const workbench::PluginLibrary&)> parts[] = {
      {"modeless", checkModeless}, {"modal", checkModal}, {"again and again", checkResources}};
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
  if (words.size() != 1) {
    std::cout << "use: window_check DLL\n";
    return 1;
  }
  try {
    kebu::tests::run(words[0]);
  } catch (const kebu::RuntimeError& error) {
    kebu::tests::expectThat(
        false, "no error " + std::to_string(error.number()) + " (" + error.description() + ")");
  }
  std::cout << (kebu::tests::failedChecks() == 0 ? "every check holds\n" : "");
  return kebu::tests::failedChecks() == 0 ? 0 : 1;
}
