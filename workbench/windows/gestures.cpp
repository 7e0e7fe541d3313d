#include "workbench/windows/gestures.h"

#include "windows/support/text.h"

namespace kebu::workbench {

void clickAt(HWND window, POINT point) {
  const LPARAM place = MAKELPARAM(point.x, point.y);
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
  PostMessageW(window, WM_LBUTTONUP, 0, place);
}

void clickOn(HWND window, const RECT& bounds) {
  clickAt(window, {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2});
}

void pressKey(HWND window, WPARAM key, int times) {
  constexpr LPARAM released = static_cast<LPARAM>(0xC0000001);
  // F10 is the key of the menu bar, and comes as a system key.
  const bool isSystem = key == VK_F10;
  for (int i = 0; i < times; ++i) {
    PostMessageW(window, isSystem ? WM_SYSKEYDOWN : WM_KEYDOWN, key, 1);
    PostMessageW(window, isSystem ? WM_SYSKEYUP : WM_KEYUP, key, released);
  }
}

void typeText(HWND window, const std::wstring& text) {
  for (const wchar_t c : text) PostMessageW(window, WM_CHAR, c, 1);
}

void replaceText(HWND edit, const std::wstring& text) {
  PostMessageW(edit, EM_SETSEL, 0, -1);
  if (text.empty()) {
    pressKey(edit, VK_DELETE);
  } else {
    typeText(edit, text);
  }
}

void takeFromList(HWND combo, int index) {
  if (!SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0)) pressKey(combo, VK_F4);
  // In a list without a choice the first key only chooses the entry of the last one.
  pressKey(combo, VK_HOME, 2);
  pressKey(combo, VK_DOWN, index);
  pressKey(combo, VK_RETURN);
}

std::optional<int> entryOfOpenMenu(const std::wstring& caption) {
  constexpr const wchar_t* menuClass = L"#32768";
  constexpr UINT getMenu = 0x01E1;  // MN_GETHMENU
  HWND const window = FindWindowW(menuClass, nullptr);
  auto* const menu = reinterpret_cast<HMENU>(SendMessageW(window, getMenu, 0, 0));
  int reachable = 0;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t text[256] = {};
    GetMenuStringW(menu, static_cast<UINT>(i), text, 256, MF_BYPOSITION);
    const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
    if (state & MF_SEPARATOR) continue;
    const std::wstring shown(text);
    if (shown.substr(0, shown.find(L'\t')) == caption) {
      return state & MF_GRAYED ? std::nullopt : std::optional(reachable);
    }
    ++reachable;
  }
  return std::nullopt;
}

std::string clipboardText() {
  std::string text;
  if (!OpenClipboard(nullptr)) return text;
  if (HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    text = windows::toUtf8(static_cast<const wchar_t*>(GlobalLock(data)));
    GlobalUnlock(data);
  }
  CloseClipboard();
  return text;
}

bool takeFileDialog(HWND dialog, const std::wstring& path) {
  constexpr int nameBox = 0x480;
  constexpr int nameCombo = 0x47C;
  HWND name = GetDlgItem(dialog, nameBox);
  if (!name) name = GetDlgItem(dialog, nameCombo);
  if (!name) return false;
  SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
  PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  return true;
}

std::wstring classOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

}  // namespace kebu::workbench
