// The DLL's start, each step against the same work without the plug-in.
//
//   kebu_window_bench PATH\KEBU_ANAGKELMORIA.dll
#include <string>
#include <vector>

#include "bench/paired_runner.h"
#include "bench/windows/on_dll.h"
#include "tests/support/statement_recorder.h"
#include "tests/windows/dll_host.h"
#include "windows/ado/ado_objects.h"
#include "windows/support/text.h"
#include "workbench/engine/execution/session.h"
#include "workbench/windows/apartment.h"

namespace kebu::bench {

namespace {

/// A window of the system with the class, style and bounds of one of the form's.
struct BareWindow {
  std::wstring className;
  DWORD style;
  RECT bounds;
};

BOOL CALLBACK addBareWindow(HWND window, LPARAM context) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  RECT bounds{};
  GetWindowRect(window, &bounds);
  // Window classes of the DLL are not registered for this program.
  WNDCLASSW known{};
  const bool isSystemClass = GetClassInfoW(nullptr, name, &known);
  reinterpret_cast<std::vector<BareWindow>*>(context)->push_back(
      {isSystemClass ? name : L"STATIC", static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)),
       bounds});
  return TRUE;
}

void paint(HWND window) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

/// Creates, shows and paints the same windows without the plug-in.
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
  tests::StatementRecorder recorder;
  tests::DllHost host(library, &recorder);
  PairedRunner runner("");

  windows::AdoLibrary ado;
  runner.compare({
      .name = "creation of the class",
      .floorName = "an empty recordset's",
      .subject = [&] { return timeOf([&] { library.create(); }); },
      .floor = [&] { return timeOf([&] { ado.newRecordset(); }); },
      .pairs = 2000,
  });

  const auto open = [&] {
    host->open();
    paint(tests::shownForm());
  };
  open();
  std::vector<BareWindow> children;
  EnumChildWindows(tests::shownForm(), addBareWindow, reinterpret_cast<LPARAM>(&children));
  host->close();
  recorder.setListening(false);
  engine::Session session(host.database());
  runner.compare({
      .name = "opening to first paint",
      .floorName = "its statements and as many bare windows",
      .subject =
          [&] {
            const Nanoseconds time = timeOf(open);
            host->close();
            tests::pumpWaiting();
            return time;
          },
      .floor =
          [&] {
            return timeOf([&] {
              for (const std::string& statement : recorder.statements()) session.execute(statement);
              openBare(children);
            });
          },
      .pairs = 30,
  });
}

}  // namespace

}  // namespace kebu::bench

int main(int argc, char** argv) {
  return kebu::bench::onDll(argc, argv, "kebu_window_bench", kebu::bench::run);
}
