#pragma once

#include <windows.h>

#include <functional>

namespace kebu::windows {

/// A key pressed in one of our windows.
struct Key {
  WPARAM code = 0;  ///< the virtual key; of a mnemonic its letter
  bool shift = false;
  bool control = false;
  bool mnemonic = false;  ///< a letter together with Alt

  bool isPlain(WPARAM wanted) const { return code == wanted && !shift && !control && !mnemonic; }
};

/// A window that has a use for keys whatever control has the focus.
class KeyTarget {
 public:
  virtual ~KeyTarget() = default;
  /// What the key does here; nothing when it belongs to the control with the focus.
  virtual std::function<void()> actionFor(const Key& key) = 0;
};

/// Sees the keys before the message loop does. The loop is the host's, which
/// knows nothing of us: a key that one of our windows has a use for is turned
/// into a message to that window.
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
