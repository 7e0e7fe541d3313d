// The DLL's start, each step beside its floor: the same work without the plug-in.
//
//   kebu_window_bench PATH\KEBU_ANAGKELMORIA.dll
#include <algorithm>
#include <chrono>
#include <functional>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "bench/windows/on_dll.h"
#include "tests/windows/dll_host.h"
#include "windows/ado/ado_objects.h"
#include "windows/support/text.h"
#include "workbench/engine/execution/session.h"
#include "workbench/windows/apartment.h"

namespace kebu::bench {

namespace {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

/// The middle one of many, of a work whose timed part is told by `timed`.
double median(int times, const std::function<Clock::duration()>& timed) {
  std::vector<double> all;
  for (int i = 0; i < times; ++i) all.push_back(Microseconds(timed()).count());
  std::nth_element(all.begin(), all.begin() + times / 2, all.end());
  return all[static_cast<std::size_t>(times / 2)];
}

template <class Work>
Clock::duration timeOf(Work&& work) {
  const auto start = Clock::now();
  work();
  return Clock::now() - start;
}

void tell(const char* what, double time, const char* floorName, double floor) {
  std::cout << std::fixed << std::setprecision(1) << "  " << std::left << std::setw(36) << what
            << std::right << std::setw(10) << time << " us, " << std::setprecision(2)
            << time / floor << " times its floor (" << floorName << ", " << std::setprecision(1)
            << floor << " us)" << std::endl;
}

class StatementRecorder : public workbench::StatementObserver {
 public:
  std::vector<std::string> statements;
  void before(const std::string&, bool) override {}
  void after(const std::string& text, bool, std::int64_t, const RuntimeError*) override {
    statements.push_back(text);
  }
};

/// A window of the system's as one of the form's is.
struct BareWindow {
  std::wstring className;
  DWORD style;
  RECT bounds;
};

BOOL CALLBACK noteChild(HWND window, LPARAM context) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  RECT bounds{};
  GetWindowRect(window, &bounds);
  // The plug-in's own classes are known to its own code alone.
  WNDCLASSW known{};
  const bool isSystems = GetClassInfoW(nullptr, name, &known);
  reinterpret_cast<std::vector<BareWindow>*>(context)->push_back(
      {isSystems ? name : L"STATIC", static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)),
       bounds});
  return TRUE;
}

void paint(HWND window) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

/// The form's windows without the form: made, shown and painted.
void openBare(const std::vector<BareWindow>& children) {
  HWND frame = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 1000,
                               700, nullptr, nullptr, nullptr, nullptr);
  for (const BareWindow& child : children) {
    CreateWindowExW(0, child.className.c_str(), L"", child.style, child.bounds.left,
                    child.bounds.top, child.bounds.right - child.bounds.left,
                    child.bounds.bottom - child.bounds.top, frame, nullptr, nullptr, nullptr);
  }
  ShowWindow(frame, SW_SHOW);
  paint(frame);
  DestroyWindow(frame);
  tests::pumpWaiting();
}

void run(const std::string& path) {
  const workbench::Apartment apartment;
  const workbench::PluginLibrary library(windows::toWide(path));
  StatementRecorder recorder;
  tests::DllHost host(library, &recorder);

  constexpr int manyTimes = 2000;
  windows::AdoLibrary ado;
  const double bareObject = median(manyTimes, [&] { return timeOf([&] { ado.newRecordset(); }); });
  tell("creation of the class",
       median(manyTimes, [&] { return timeOf([&] { library.create(); }); }), "an empty recordset's",
       bareObject);

  std::vector<BareWindow> children;
  const auto open = [&] {
    host->open();
    paint(tests::shownForm());
  };
  open();
  EnumChildWindows(tests::shownForm(), noteChild, reinterpret_cast<LPARAM>(&children));
  host->close();
  const std::vector<std::string> statements = recorder.statements;

  constexpr int times = 30;
  const double opening = median(times, [&] {
    const auto time = timeOf(open);
    host->close();
    tests::pumpWaiting();
    return time;
  });
  engine::Session session(host.database());
  const double bareStatements = median(times, [&] {
    return timeOf([&] {
      for (const std::string& statement : statements) session.execute(statement);
    });
  });
  const double bareWindows = median(times, [&] { return timeOf([&] { openBare(children); }); });
  tell("opening to first paint", opening, "its statements and bare windows",
       bareStatements + bareWindows);
}

}  // namespace

}  // namespace kebu::bench

int main(int argc, char** argv) {
  return kebu::bench::onDll(argc, argv, "kebu_window_bench", kebu::bench::run);
}
