// Two threads of a host, each with an apartment and windows of its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "common/convert.h"
#include "tests/windows/window_fixture.h"
#include "windows/support/handles.h"
#include "workbench/engine/execution/session.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"

namespace kebu::tests {

namespace {

using workbench::WindowReader;

/// How often each thread opens the window: 100 times in a long run.
int rounds() {
  constexpr std::size_t usual = 100;
  return static_cast<int>(arguments().size() > 1
                              ? std::min<std::size_t>(std::stoul(arguments()[1]) / 2, usual)
                              : usual);
}

/// Acts until it has had an effect. A window of the other thread may take the keyboard or the mouse
/// away in the middle of a gesture.
template <class Action, class Condition>
void until(Condition&& holds, Action&& action) {
  constexpr int attempts = 50;
  for (int i = 0; i < attempts && !holds(); ++i) {
    action();
    pumpWaiting();
  }
}

/// Opens the window, changes and saves the note, and closes it; how often that went well.
void work(const workbench::PluginLibrary& library, LCID locale, std::atomic<int>& done) {
  const workbench::Apartment apartment;
  SetThreadLocale(locale);
  DllHost host(library);
  for (int i = 0; i < rounds(); ++i) {
    const std::wstring text = L"nota " + std::to_wstring(i) + L" di " + std::to_wstring(locale);
    host->open();
    pumpWaiting();
    const WindowReader reader(shownForm());
    const auto save = [&] {
      return reader.find(windows::Inspected::Item, "INAV_PAR", {"Conferma", 0, 0}).value();
    };
    until([&] { return save().enabled; },
          [&] {
            // At once, since a change of focus moves the caret.
            HWND note = reader.control("TXT_GM03_NOTE").window;
            workbench::clickAt(note, {3, 3});
            pumpWaiting();
            SendMessageW(note, EM_SETSEL, 0, -1);
            SendMessageW(note, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
            workbench::pressKey(note, VK_TAB);
          });
    until([&] { return !save().enabled; },
          [&] { workbench::clickOn(save().window, save().bounds); });
    const bool closed = host->close();
    const bool gone = shownForm() == nullptr;
    const auto stored = engine::Session(host.database())
                            .execute(
                                "SELECT GM03_NOTE FROM GM03_DISPOSITIVI WHERE GM03_DITTA_CG18 = 1 "
                                "AND GM03_IDAPPLICAZIONE = 14")
                            .front()
                            .rows.front()
                            .front();
    const bool saved = toDisplay(stored) == windows::toUtf8(text);
    if (closed && gone && saved && host.boxes().empty()) ++done;
  }
}

/// Edit boxes in the fonts of the plug-in's. Two threads that lay out the first text in a font at
/// the same moment break a list of Wine 8's gdi32; while these exist no text is the first.
class KnownFonts {
 public:
  KnownFonts() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    font_.reset(CreateFontIndirectW(&metrics.lfMessageFont));
    for (HFONT font : {static_cast<HFONT>(nullptr), font_.get()}) {
      boxes_.emplace_back(CreateWindowExW(0, L"EDIT", L"testo", WS_POPUP, 0, 0, 100, 20, nullptr,
                                          nullptr, nullptr, nullptr));
      HWND box = boxes_.back().get();
      if (font) SendMessageW(box, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
      SendMessageW(box, EM_POSFROMCHAR, 1, 0);
    }
  }

 private:
  windows::OwnedFont font_;
  std::vector<windows::OwnedWindow> boxes_;
};

TEST_F(WindowTest, TwoThreadsWorkBesideEachOther) {
  const KnownFonts fonts;
  std::atomic<int> italian = 0;
  std::atomic<int> american = 0;
  std::thread one([&] { work(*library, 0x0410, italian); });
  std::thread other([&] { work(*library, 0x0409, american); });
  one.join();
  other.join();
  EXPECT_EQ(italian, rounds());
  EXPECT_EQ(american, rounds());
}

}  // namespace

}  // namespace kebu::tests
