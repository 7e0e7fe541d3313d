#pragma once

#include <string>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Whether a window is of a class, by its name in any case.
bool isOfClass(HWND window, const wchar_t* className);
/// What a control shows.
std::wstring windowText(HWND window);
/// Sets it when it differs, so that nothing flickers and no caret jumps.
void setWindowText(HWND window, const std::wstring& text);
/// Sets the font of what it shows. Nothing happens for a null window.
inline void setFont(HWND window, HFONT font, bool redraw = true) {
  if (window) SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw);
}

}  // namespace kebu::windows
