#pragma once

#include <string>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// What a control shows.
std::wstring windowText(HWND window);
/// Sets it when it differs, so that nothing flickers and no caret jumps.
void setWindowText(HWND window, const std::wstring& text);

}  // namespace kebu::windows
