// For how long the window gives no answer while the database works for it, and how long that takes
// altogether: the candidates of 100,000 prices, and the preview of 100,100 articles.
//
//   kebu_busy_bench PATH\KEBU_ANAGKELMORIA.dll
#include <functional>
#include <iostream>
#include <string>

#include "bench/large_companies.h"
#include "common/error.h"
#include "tests/windows/dll_host.h"
#include "windows/support/text.h"
#include "workbench/engine/session.h"
#include "workbench/program_words.h"
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

  tests::openPage(form, discounts);
  const auto lists = workbench::WindowReader(form).control("CMB_LISTINISCONTO");
  tell("discount candidates", form, [&] {
    workbench::takeFromList(lists.window, 1);
    tests::pumpWaiting();
  });
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
  const auto words = kebu::workbench::programWords(argc, argv);
  if (words.size() != 1) {
    std::cout << "use: kebu_busy_bench DLL\n";
    return 1;
  }
  try {
    kebu::bench::run(words[0]);
  } catch (const kebu::RuntimeError& error) {
    std::cout << "error " << error.number() << ": " << error.description() << '\n';
    return 1;
  }
  return 0;
}
