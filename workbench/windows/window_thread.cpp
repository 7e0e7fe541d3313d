#include "workbench/windows/window_thread.h"

#include "workbench/player/scenario.h"

namespace kebu::workbench {

namespace {

constexpr UINT workMessage = WM_APP;
constexpr UINT markMessage = WM_APP + 1;
constexpr UINT leaveMessage = WM_APP + 2;
constexpr const wchar_t* className = L"kebu.workbench.thread";

/// Whether neither input nor posted messages are waiting.
bool hasNothingToDo() {
  MSG next{};
  return !PeekMessageW(&next, nullptr, 0, 0, PM_NOREMOVE | PM_QS_POSTMESSAGE | PM_QS_INPUT);
}

void carryOut(WindowThread::Task& task) {
  try {
    task.work();
  } catch (...) {
    task.error = std::current_exception();
  }
  task.done = true;
}

}  // namespace

WindowThread::WindowThread() : id_(GetCurrentThreadId()) {
  HINSTANCE module = GetModuleHandleW(nullptr);
  WNDCLASSW definition{};
  definition.lpfnWndProc = procedure;
  definition.hInstance = module;
  definition.lpszClassName = className;
  RegisterClassW(&definition);
  window_.reset(
      CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, module, this));
  SetWindowLongPtrW(window_.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  reached_.reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
}

WindowThread::~WindowThread() {
  window_.reset();  // a class with windows cannot be unregistered
  UnregisterClassW(className, GetModuleHandleW(nullptr));
}

void WindowThread::pump() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void WindowThread::leave() {
  PostMessageW(window_.get(), leaveMessage, 0, 0);
}

std::shared_ptr<WindowThread::Task> WindowThread::post(std::function<void()> work) {
  auto task = std::make_shared<Task>(Task{std::move(work), nullptr, false});
  auto* const handed = new std::shared_ptr<Task>(task);
  PostMessageW(window_.get(), workMessage, 0, reinterpret_cast<LPARAM>(handed));
  return task;
}

void WindowThread::settle() {
  constexpr DWORD patience = 60000;
  // Twice, since messages sent between threads may still cause work.
  for (int quietTimes = 0; quietTimes < 2;) {
    PostMessageW(window_.get(), markMessage, 0, 0);
    if (WaitForSingleObject(reached_.get(), patience) != WAIT_OBJECT_0) {
      throw StepError("the window has not answered for a minute");
    }
    quietTimes = quiet_ ? quietTimes + 1 : 0;
  }
}

LRESULT CALLBACK WindowThread::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const self = reinterpret_cast<WindowThread*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!self) return DefWindowProcW(window, message, wParam, lParam);
  switch (message) {
    case workMessage: {
      const std::unique_ptr<std::shared_ptr<Task>> handed(
          reinterpret_cast<std::shared_ptr<Task>*>(lParam));
      carryOut(**handed);
      return 0;
    }
    case markMessage:
      self->quiet_ = hasNothingToDo();
      SetEvent(self->reached_.get());
      return 0;
    case leaveMessage:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

}  // namespace kebu::workbench
