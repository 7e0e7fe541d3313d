#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace kebu::windows {

/// How a window is made.
struct WindowTraits {
  const wchar_t* className;
  DWORD style = WS_CHILD | WS_VISIBLE;
  DWORD extendedStyle = 0;
  HCURSOR cursor = LoadCursorW(nullptr, IDC_ARROW);
  UINT classStyle = CS_DBLCLKS;
};

/// A window whose messages we answer ourselves. Ends with this object.
class Window {
 public:
  Window() = default;
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND handle() const { return handle_; }
  RECT clientArea() const;
  void invalidate() const;

 protected:
  void create(HINSTANCE module, const WindowTraits& traits, HWND parent, const RECT& bounds,
              const std::wstring& title = {});
  void destroy();
  /// Where a scroll bar's message wants its bar to stand, a line being `line`
  /// units; nothing for one that does not move it.
  std::optional<int> scrolled(int bar, WPARAM wParam, int line) const;
  /// Overridden to answer; what is left over goes to the base.
  virtual LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND handle_ = nullptr;
};

/// Forgets our window classes, before the module that holds their procedures goes.
void unregisterWindowClasses(HINSTANCE module);

}  // namespace kebu::windows
