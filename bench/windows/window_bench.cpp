// The DLL's start, each step against the same work without the plug-in.
//
//   kebu_window_bench PATH\KEBU_ANAGKELMORIA.dll
#include <chrono>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "bench/paired_runner.h"
#include "bench/windows/on_dll.h"
#include "tests/support/statement_recorder.h"
#include "tests/windows/dll_host.h"
#include "windows/ado/ado_objects.h"
#include "windows/support/text.h"
#include "workbench/engine/execution/session.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"

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

std::vector<BareWindow> shownChildren(HWND window) {
  std::vector<BareWindow> children;
  EnumChildWindows(window, addBareWindow, reinterpret_cast<LPARAM>(&children));
  return children;
}

/// Runs a function when the thread's next message loop gets to it: that of a dialog which an action
/// opens that was posted before.
class InNextLoop {
 public:
  explicit InNextLoop(std::function<void()> act) : act_(std::move(act)) {
    window_ =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    PostMessageW(window_, WM_APP, 0, 0);
  }
  ~InNextLoop() { DestroyWindow(window_); }
  InNextLoop(const InNextLoop&) = delete;
  InNextLoop& operator=(const InNextLoop&) = delete;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_APP) return DefWindowProcW(window, message, wParam, lParam);
    reinterpret_cast<InNextLoop*>(GetWindowLongPtrW(window, GWLP_USERDATA))->act_();
    return 0;
  }

  std::function<void()> act_;
  HWND window_;
};

/// Opens the dialog before the preview of articles, until it is painted, and leaves it.
Nanoseconds openFilterDialog(const std::function<void()>& whenPainted) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point start = Clock::now();
  Clock::time_point end = start;
  HWND const form = tests::shownForm();
  const auto link =
      workbench::WindowReader(form).find(windows::Inspected::Item, "SBAR_MAIN", {"8", 0, 0});
  workbench::clickOn(link.value().window, link->bounds);
  const InNextLoop painted([&] {
    HWND const dialog = tests::shownForm();
    // Lays out what is still to be laid out.
    workbench::WindowReader(dialog).find(windows::Inspected::Control, "", {});
    paint(dialog);
    end = Clock::now();
    whenPainted();
    PostMessageW(dialog, WM_CLOSE, 0, 0);
  });
  tests::pumpWaiting();
  return end - start;
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
  const std::vector<BareWindow> children = shownChildren(tests::shownForm());
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

  host->open();
  std::vector<BareWindow> inDialog;
  openFilterDialog([&] {
    inDialog = shownChildren(tests::shownForm());
    std::erase_if(inDialog, [](const BareWindow& each) { return !(each.style & WS_VISIBLE); });
  });
  std::cout << "The filter dialog shows " << inDialog.size() << " windows.\n";
  runner.compare({
      .name = "the filter dialog to first paint",
      .floorName = "as many bare windows",
      .subject = [&] { return openFilterDialog([] {}); },
      .floor = [&] { return timeOf([&] { openBare(inDialog); }); },
      .pairs = 40,
      .aim = 1.3,
  });
  host->close();
}

}  // namespace

}  // namespace kebu::bench

int main(int argc, char** argv) {
  return kebu::bench::onDll(argc, argv, "kebu_window_bench", kebu::bench::run);
}
