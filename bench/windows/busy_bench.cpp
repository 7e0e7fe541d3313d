// How long the window does not respond while the database works for it, and how long each action
// takes: 100,000 discount rules are computed, selected, saved and loaded, and 100,100 articles
// previewed and summed up.
//
//   kebu_busy_bench PATH\KEBU_ANAGKELMORIA.dll
#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <iostream>
#include <string>

#include "bench/large_companies.h"
#include "bench/windows/on_dll.h"
#include "common/convert.h"
#include "tests/windows/dll_host.h"
#include "windows/support/text.h"
#include "workbench/engine/execution/session.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"

namespace kebu::bench {

namespace {

constexpr const char* articlesPreview = "8";
constexpr const char* discounts = "12";

/// The longest time in milliseconds for which a window does not answer another thread while this
/// thread runs `action`.
ULONGLONG longestSilence(HWND window, const std::function<void()>& action) {
  std::atomic<bool> over = false;
  auto otherThread = std::async(std::launch::async, [&] {
    ULONGLONG longest = 0;
    while (!over) {
      const ULONGLONG asked = GetTickCount64();
      SendMessageW(window, WM_NULL, 0, 0);
      longest = std::max(longest, GetTickCount64() - asked);
      Sleep(1);
    }
    return longest;
  });
  action();
  over = true;
  // The other thread's last message may still wait for this one.
  while (otherThread.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
    tests::pumpWaiting();
  }
  return otherThread.get();
}

void measure(const char* what, HWND form, const std::function<void()>& action) {
  const ULONGLONG start = GetTickCount64();
  const ULONGLONG silence = longestSilence(form, action);
  std::cout << "  " << what << ": " << GetTickCount64() - start << " ms, at most " << silence
            << " ms without a response" << std::endl;
}

constexpr char accept[] = "CMD_OK";
constexpr char leave[] = "CMD_ANNULLA";
constexpr char close[] = "CMD_CHIUDI";

/// Clicks a button of the dialog that is shown.
template <const char* name>
void CALLBACK closeDialog(HWND window, UINT, UINT_PTR timer, DWORD) {
  KillTimer(window, timer);
  const workbench::WindowReader dialog(tests::shownForm());
  const auto button = dialog.control(name);
  workbench::clickOn(button.window, button.bounds);
}

void run(const std::string& path) {
  const workbench::Apartment apartment;
  const workbench::PluginLibrary library(windows::toWide(path));
  tests::DllHost host(library);
  engine::Session session(host.database());
  workbench::fillWithPrices(session);
  workbench::fillWithArticles(session);
  session.execute("DELETE FROM GM61_KBDISCOUNTRULES");  // so that candidates are computed
  host->open();
  HWND form = tests::shownForm();

  const workbench::WindowReader reader(form);
  tests::openPage(form, discounts);
  const auto choose = [&](int index) {
    tests::chooseRow("CMB_LISTINISCONTO", index);
    tests::pumpWaiting();
  };
  const auto click = [&](const windows::Inspection& part) {
    workbench::clickOn(part.window, part.bounds);
    tests::pumpWaiting();
  };
  measure("discount candidates", form, [&] { choose(1); });
  click(reader.control("CHK_SCONTOPREZZOART"));
  measure("all of them selected", form, [&] {
    click(reader.find(windows::Inspected::TickAll, "QGRID_SCONTOSUPREZZO", {"GM61_ATTIVA", 0, 0})
              .value());
  });
  measure("and stored as rules", form, [&] {
    click(reader.find(windows::Inspected::Item, "INAV_PAR", {"Conferma", 0, 0}).value());
  });
  const auto rules = session.execute("SELECT COUNT(*) AS N FROM GM61_KBDISCOUNTRULES");
  std::cout << "    (" << toText(rules.front().rows.front().front()) << " rules)" << std::endl;
  choose(2);
  measure("the stored rules", form, [&] { choose(1); });
  constexpr UINT delay = 1000;
  const auto openPreview = [&] { tests::openPage(form, articlesPreview); };
  SetTimer(nullptr, 0, delay, closeDialog<leave>);
  measure("dialog before the preview, left", form, openPreview);
  SetTimer(nullptr, 0, delay, closeDialog<accept>);
  measure("dialog and preview of the articles", form, openPreview);
  SetTimer(nullptr, 0, delay, closeDialog<close>);
  measure("summary", form, [&] { click(reader.control("BTN_RIEPILOGO")); });
  host->close();
}

}  // namespace

}  // namespace kebu::bench

int main(int argc, char** argv) {
  return kebu::bench::onDll(argc, argv, "kebu_busy_bench", kebu::bench::run);
}
