#pragma once

#include <functional>
#include <string>
#include <utility>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Tells moves of the pointer from what Windows reports when a window appears beneath it.
class PointerPlace {
 public:
  PointerPlace() { GetCursorPos(&at_); }
  /// Whether it is at another place than before.
  bool moved() {
    POINT now{};
    GetCursorPos(&now);
    const POINT before = std::exchange(at_, now);
    return now.x != before.x || now.y != before.y;
  }

 private:
  POINT at_{};
};

/// Follows the pointer over the controls of a window: the one that it is on is drawn anew, and when
/// the pointer rests there a tip is shown.
class PointerWatch {
 public:
  static constexpr UINT_PTR timer = 0x7011;

  /// `tipOf` gives the text for a control at a point of the screen; "" for none.
  explicit PointerWatch(std::function<std::wstring(HWND control, POINT screen)> tipOf)
      : tipOf_(std::move(tipOf)) {}
  PointerWatch(const PointerWatch&) = delete;
  PointerWatch& operator=(const PointerWatch&) = delete;
  ~PointerWatch();

  /// The window whose controls are watched; it passes on WM_SETCURSOR and the timer.
  void watch(HWND window) { window_ = window; }
  /// WM_SETCURSOR came from a control in the window, or from the window itself.
  void pointerMoved(HWND from);
  void tick();
  /// The control that the pointer is on; null for none.
  HWND control() const { return control_; }

 private:
  void setControl(HWND control);
  void showTip(POINT screen);
  void hideTip();

  std::function<std::wstring(HWND, POINT)> tipOf_;
  HWND window_ = nullptr;
  HWND control_ = nullptr;
  HWND tip_ = nullptr;  ///< made when it is first needed; destroyed with the window, which owns it
  std::wstring text_;
  PointerPlace place_;
  int rested_ = 0;  ///< in ticks
  bool shown_ = false;
};

}  // namespace kebu::windows
