#pragma once

#include <functional>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// A key pressed in one of our windows.
struct Key {
  WPARAM code = 0;  ///< the virtual key; of a mnemonic its letter
  bool shift = false;
  bool control = false;
  bool mnemonic = false;  ///< a letter or Enter together with Alt

  bool isPlain(WPARAM wanted) const { return code == wanted && !shift && !control && !mnemonic; }
};

/// A window that acts on keys whatever control has the focus.
class KeyTarget {
 public:
  virtual ~KeyTarget() = default;
  /// The action of a key; empty when the key is left to the control with the focus.
  virtual std::function<void()> actionFor(const Key& key) = 0;
};

/// Sees the keys before the message loop dispatches them. The loop is the host's and does not know
/// our windows: a key that one of them acts on is turned into a message to that window.
class KeyboardHook {
 public:
  KeyboardHook(HWND window, KeyTarget& target);
  ~KeyboardHook();
  KeyboardHook(const KeyboardHook&) = delete;
  KeyboardHook& operator=(const KeyboardHook&) = delete;

  static constexpr UINT message = WM_APP + 1;
  /// Answers that message.
  static void act(KeyTarget& target, WPARAM wParam, LPARAM lParam);

 private:
  HWND window_;
};

}  // namespace kebu::windows
