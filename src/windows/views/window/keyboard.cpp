#include "windows/views/window/keyboard.h"

#include <map>
#include <utility>

#include "windows/support/handles.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

struct Targets {
  std::map<HWND, KeyTarget*> byWindow;
  OwnedHook hook;
};

/// Windows belong to the thread that made them, and so does the hook. Null while there are no
/// windows. A pointer, since the destructor of a thread_local object would keep the library loaded
/// until the thread ends.
thread_local Targets* targets = nullptr;

constexpr LPARAM shiftFlag = 1;
constexpr LPARAM controlFlag = 2;
constexpr LPARAM mnemonicFlag = 4;

LPARAM flagsOf(const Key& key) {
  return (key.shift ? shiftFlag : 0) | (key.control ? controlFlag : 0) |
         (key.mnemonic ? mnemonicFlag : 0);
}

bool isDown(int key) {
  return GetKeyState(key) < 0;
}

bool isCombo(HWND window) {
  return isOfClass(window, L"ComboBox");
}

bool isDroppedCombo(HWND window) {
  return isCombo(window) && SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void redirect(MSG& message) {
  if (!targets) return;
  const bool isKey = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
  if (message.message == WM_MOUSEWHEEL && isCombo(message.hwnd) && !isDroppedCombo(message.hwnd) &&
      targets->byWindow.count(GetAncestor(message.hwnd, GA_ROOT))) {
    // Scrolling a page must not change a choice under the mouse pointer.
    message.hwnd = GetParent(message.hwnd);
    return;
  }
  if (!isKey && message.message != WM_SYSCHAR) return;
  const HWND root = GetAncestor(message.hwnd, GA_ROOT);
  const auto at = targets->byWindow.find(root);
  if (at == targets->byWindow.end()) return;
  const bool alt = message.message != WM_KEYDOWN && (HIWORD(message.lParam) & KF_ALTDOWN);
  // Alt with a letter comes as WM_SYSCHAR, too.
  const bool isDetailsKey = isKey && alt && message.wParam == VK_RETURN;
  if (isKey && alt && !isDetailsKey) return;
  if (isDroppedCombo(message.hwnd)) return;
  Key key{message.wParam, isDown(VK_SHIFT), isDown(VK_CONTROL),
          message.message == WM_SYSCHAR || isDetailsKey};
  if (!at->second->actionFor(key)) return;
  message.hwnd = root;
  message.message = KeyboardHook::message;
  message.lParam = flagsOf(key);
}

LRESULT CALLBACK hookProcedure(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HC_ACTION && wParam == PM_REMOVE) {
    guarded([&] { redirect(*reinterpret_cast<MSG*>(lParam)); });
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

KeyboardHook::KeyboardHook(HWND window, KeyTarget& target) : window_(window) {
  if (!targets) {
    OwnedHook hook(SetWindowsHookExW(WH_GETMESSAGE, hookProcedure, nullptr, GetCurrentThreadId()));
    targets = new Targets{{}, std::move(hook)};
  }
  targets->byWindow[window] = &target;
}

KeyboardHook::~KeyboardHook() {
  targets->byWindow.erase(window_);
  if (!targets->byWindow.empty()) return;
  delete targets;
  targets = nullptr;
}

void KeyboardHook::act(KeyTarget& target, WPARAM wParam, LPARAM lParam) {
  const Key key{wParam, (lParam & shiftFlag) != 0, (lParam & controlFlag) != 0,
                (lParam & mnemonicFlag) != 0};
  if (const auto action = target.actionFor(key)) action();
}

}  // namespace kebu::windows
