#include "windows/views/window/window_text.h"

namespace kebu::windows {

bool isOfClass(HWND window, const wchar_t* className) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  return lstrcmpiW(name, className) == 0;
}

std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void setWindowText(HWND window, const std::wstring& text) {
  if (windowText(window) != text) SetWindowTextW(window, text.c_str());
}

}  // namespace kebu::windows
