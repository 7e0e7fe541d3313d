// The DLL's start, each step against the same work without the plug-in.
//
//   kebu_window_bench PATH\KEBU_ANAGKELMORIA.dll
#include <chrono>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "bench/paired_runner.h"
#include "bench/windows/on_dll.h"
#include "tests/support/statement_recorder.h"
#include "tests/windows/dll_host.h"
#include "windows/ado/ado_objects.h"
#include "windows/support/text.h"
#include "windows/views/window/common_controls.h"
#include "windows/views/window/dpi.h"
#include "windows/views/window/window_text.h"
#include "workbench/engine/execution/session.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"

namespace kebu::bench {

namespace {

/// A window as plain Win32 makes it, with the class, style, place and text of one of the form's.
struct BareWindow {
  HWND original;
  HWND parent;  ///< of the original
  std::wstring className;
  DWORD style;
  RECT bounds;  ///< in the parent
  std::wstring text;
};

BOOL CALLBACK addBareWindow(HWND window, LPARAM context) {
  BareWindow bare{window,
                  GetParent(window),
                  workbench::classOf(window),
                  static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)),
                  {},
                  windows::windowText(window)};
  if (!(bare.style & WS_VISIBLE)) return TRUE;
  // Window classes of the DLL are not registered for this program.
  WNDCLASSW known{};
  if (!GetClassInfoW(nullptr, bare.className.c_str(), &known)) bare.className = L"STATIC";
  GetWindowRect(window, &bare.bounds);
  MapWindowPoints(nullptr, bare.parent, reinterpret_cast<POINT*>(&bare.bounds), 2);
  reinterpret_cast<std::vector<BareWindow>*>(context)->push_back(std::move(bare));
  return TRUE;
}

void paint(HWND window) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

/// The windows that a form shows, parents before their children.
std::vector<BareWindow> shownChildren(HWND window) {
  std::vector<BareWindow> children;
  EnumChildWindows(window, addBareWindow, reinterpret_cast<LPARAM>(&children));
  return children;
}

/// Creates, shows and paints the same windows without the plug-in, as a dialog template does: in
/// the same version of the common controls, with the system's font.
Nanoseconds openBare(const std::vector<BareWindow>& children) {
  HWND frame = nullptr;
  const Nanoseconds time = timeOf([&] {
    const windows::CommonControls::Scope scope;
    const windows::OwnedFont font([] {
      const LOGFONTW message = windows::messageFont(USER_DEFAULT_SCREEN_DPI);
      return CreateFontIndirectW(&message);
    }());
    frame = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 1000,
                            700, nullptr, nullptr, nullptr, nullptr);
    std::map<HWND, HWND> made;
    for (const BareWindow& child : children) {
      const auto inside = made.find(child.parent);
      HWND const window = CreateWindowExW(
          0, child.className.c_str(), child.text.c_str(), child.style, child.bounds.left,
          child.bounds.top, child.bounds.right - child.bounds.left,
          child.bounds.bottom - child.bounds.top, inside == made.end() ? frame : inside->second,
          nullptr, nullptr, nullptr);
      windows::setFont(window, font.get(), false);
      made[child.original] = window;
    }
    ShowWindow(frame, SW_SHOW);
    paint(frame);
  });
  DestroyWindow(frame);
  tests::pumpWaiting();
  return time;
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
  const windows::CommonControls commonControls(GetModuleHandleW(nullptr));
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
            const Nanoseconds statements = timeOf([&] {
              for (const std::string& statement : recorder.statements()) session.execute(statement);
            });
            return statements + openBare(children);
          },
      .pairs = 30,
  });

  host->open();
  std::vector<BareWindow> inDialog;
  openFilterDialog([&] { inDialog = shownChildren(tests::shownForm()); });
  std::cout << "The filter dialog shows " << inDialog.size() << " windows.\n";
  runner.compare({
      .name = "the filter dialog to first paint",
      .floorName = "as many bare windows",
      .subject = [&] { return openFilterDialog([] {}); },
      .floor = [&] { return openBare(inDialog); },
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
