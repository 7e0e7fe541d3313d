#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace kebu::windows {

// Text is UTF-8 in the models and UTF-16 on the screen.

std::wstring toWide(std::string_view text);
std::string toUtf8(std::wstring_view text);
/// What a control shows.
std::wstring windowText(HWND window);
/// Sets it when it differs, so that nothing flickers and no caret jumps.
void setWindowText(HWND window, const std::wstring& text);

}  // namespace kebu::windows
