#pragma once

#include <exception>
#include <functional>
#include <memory>

#include "windows/support/handles.h"

namespace kebu::workbench {

/// The thread that owns the windows, for another thread that acts as the user. The window thread
/// constructs it and calls pump(); the user's thread calls everything else.
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
  /// Work that the window thread is asked to do.
  struct Task {
    std::function<void()> work;
    std::exception_ptr error;
    bool done = false;
  };
  /// Has the window thread run `work`; settle() returns when it is done or waits for the user.
  std::shared_ptr<Task> post(std::function<void()> work);
  /// Waits until the window thread is idle.
  /// StepError when it is not for a minute.
  void settle();

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  DWORD id_;
  windows::OwnedWindow window_;
  windows::OwnedEvent reached_;
  bool quiet_ = false;
};

}  // namespace kebu::workbench
