#pragma once

#include <optional>
#include <string>

#include "windows/support/windows_api.h"
#include "windows/views/layout/metrics.h"

namespace kebu::windows {

/// How a window is made.
struct WindowTraits {
  const wchar_t* className;
  DWORD style = WS_CHILD | WS_VISIBLE;
  DWORD extendedStyle = 0;
  UINT classStyle = CS_DBLCLKS;
};

/// A window of a class of our own, destroyed with this object.
class Window {
 public:
  Window() = default;
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND handle() const { return handle_; }
  RECT clientArea() const;
  void invalidate() const { InvalidateRect(handle_, nullptr, FALSE); }

 protected:
  void create(HINSTANCE module, const WindowTraits& traits, HWND parent, const RECT& bounds,
              const std::wstring& title = {});
  /// From now on messages get Windows' own answer. For a destructor that first destroys what the
  /// answers use.
  void stopAnswering() { ending_ = true; }
  void destroy() {
    stopAnswering();
    if (handle_) DestroyWindow(handle_);
  }
  /// The position that a scroll bar's message asks for, a line being `line` units; nothing for a
  /// message that does not move the bar.
  std::optional<int> scrolled(int bar, WPARAM wParam, int line) const;
  void setScrollBar(int bar, const layout::ScrollRange& range) const;
  /// Handles a message; overriders call the base for messages that they do not handle.
  virtual LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam);
  /// Someone else destroyed the window: its owner or parent ended. It may delete this object.
  virtual void lost() {}

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND handle_ = nullptr;
  bool ending_ = false;
};

/// Unregisters our window classes, before the module that holds their procedures is unloaded.
void unregisterWindowClasses(HINSTANCE module);

}  // namespace kebu::windows
