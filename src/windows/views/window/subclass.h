#pragma once

#include <functional>
#include <optional>

#include "windows/views/window/window_table.h"

namespace kebu::windows {

/// A message that came to a control before the control itself sees it.
struct ControlMessage {
  HWND window;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  WNDPROC usual;  ///< the procedure of the control

  /// Has the control answer it.
  LRESULT asUsual() const { return CallWindowProcW(usual, window, message, wParam, lParam); }
};

/// Puts `answer` before the window procedure of a control, with a value that belongs to the
/// control: SetWindowSubclass, but with the values in a WindowTable. It ends with the window.
/// `answer` is a member of what the value points to, or a function that takes the value, and takes
/// a ControlMessage. It gives an optional LRESULT, nothing where the control is to answer, and must
/// not throw.
template <class Value, auto answer>
class Subclass {
 public:
  static bool isOn(HWND window) { return entries.find(window).has_value(); }

  static void putOn(HWND window, const Value& value) {
    const auto usual = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    entries.put(window, {value, usual});
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
  }

 private:
  struct Entry {
    Value value;
    WNDPROC usual;
  };

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto entry = entries.find(window);
    if (!entry) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) entries.remove(window);
    const ControlMessage received{window, message, wParam, lParam, entry->usual};
    const std::optional<LRESULT> answered = std::invoke(answer, entry->value, received);
    return answered ? *answered : received.asUsual();
  }

  inline static WindowTable<Entry> entries;
};

}  // namespace kebu::windows
