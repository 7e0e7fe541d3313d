#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <memory>

namespace kebu::workbench {

/// The thread that owns the windows, as another one works with it that acts as
/// the user. Made and pumped by the first; everything else is for the second.
class WindowThread {
 public:
  WindowThread();
  ~WindowThread();
  WindowThread(const WindowThread&) = delete;
  WindowThread& operator=(const WindowThread&) = delete;

  /// Passes messages on until leave().
  void pump();

  DWORD id() const { return id_; }
  void leave();
  /// Something that the thread is asked to do.
  struct Task {
    std::function<void()> work;
    std::exception_ptr error;
    bool done = false;
  };
  /// Has `work` done; settle() tells when it is, or waits for the user.
  std::shared_ptr<Task> post(std::function<void()> work);
  /// Waits until the thread has nothing left to do but wait for the user.
  /// StepError when it does not come back for a minute.
  void settle();

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  DWORD id_;
  HWND window_ = nullptr;
  HANDLE reached_ = nullptr;
  bool quiet_ = false;
};

}  // namespace kebu::workbench
