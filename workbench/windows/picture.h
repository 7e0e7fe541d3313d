#pragma once

#include <string>

#include "windows/support/windows_api.h"

namespace kebu::workbench {

/// Saves the window's part of the screen as a PNG file. StepError when that fails.
void savePicture(HWND window, const std::wstring& path);

}  // namespace kebu::workbench
