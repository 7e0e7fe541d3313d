// For how long the window gives no answer while the database works for it, and how long that takes
// altogether: 100,000 discount rules from the prices to the stored rows and back, and the preview
// of 100,100 articles.
//
//   kebu_busy_bench PATH\KEBU_ANAGKELMORIA.dll
#include <functional>
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

void tell(const char* what, HWND form, const std::function<void()>& deed) {
  const ULONGLONG start = GetTickCount64();
  const ULONGLONG silence = tests::longestSilence(form, deed);
  std::cout << "  " << what << ": " << GetTickCount64() - start << " ms, at most " << silence
            << " ms without an answer" << std::endl;
}

/// Leaves the filter's dialog, or takes what it offers, as soon as it is shown.
template <bool Taking>
void CALLBACK leaveDialog(HWND window, UINT, UINT_PTR timer, DWORD) {
  KillTimer(window, timer);
  const workbench::WindowReader dialog(tests::shownForm());
  const auto button = dialog.control(Taking ? "CMD_OK" : "CMD_ANNULLA");
  workbench::clickOn(button.window, button.bounds);
}

void run(const std::string& path) {
  const workbench::Apartment apartment;
  const workbench::PluginLibrary library(windows::toWide(path));
  tests::DllHost host(library);
  engine::Session session(host.database());
  workbench::fillWithPrices(session);
  workbench::fillWithArticles(session);
  session.execute("DELETE FROM GM61_KBDISCOUNTRULES");  // so that candidates are looked for
  host->open();
  HWND form = tests::shownForm();

  const workbench::WindowReader reader(form);
  tests::openPage(form, discounts);
  const auto lists = reader.control("CMB_LISTINISCONTO");
  const auto choose = [&](int index) {
    workbench::takeFromList(lists.window, index);
    tests::pumpWaiting();
  };
  const auto click = [&](const windows::Inspection& part) {
    workbench::clickOn(part.window, part.bounds);
    tests::pumpWaiting();
  };
  tell("discount candidates", form, [&] { choose(1); });
  click(reader.control("CHK_SCONTOPREZZOART"));
  tell("all of them selected", form, [&] {
    click(reader.find(windows::Inspected::TickAll, "QGRID_SCONTOSUPREZZO", {"GM61_ATTIVA", 0, 0})
              .value());
  });
  tell("and stored as rules", form, [&] {
    click(reader.find(windows::Inspected::Item, "INAV_PAR", {"Conferma", 0, 0}).value());
  });
  const auto rules = session.execute("SELECT COUNT(*) AS N FROM GM61_KBDISCOUNTRULES");
  std::cout << "    (" << toText(rules.front().rows.front().front()) << " rules)" << std::endl;
  choose(2);
  tell("the stored rules", form, [&] { choose(1); });
  constexpr UINT delay = 1000;
  const auto openPreview = [&] { tests::openPage(form, articlesPreview); };
  SetTimer(nullptr, 0, delay, leaveDialog<false>);
  tell("dialog before the preview, left", form, openPreview);
  SetTimer(nullptr, 0, delay, leaveDialog<true>);
  tell("dialog and preview of the articles", form, openPreview);
  host->close();
}

}  // namespace

}  // namespace kebu::bench

int main(int argc, char** argv) {
  return kebu::bench::onDll(argc, argv, "kebu_busy_bench", kebu::bench::run);
}
