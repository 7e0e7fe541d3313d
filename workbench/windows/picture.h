#pragma once

#include <windows.h>

#include <string>

namespace kebu::workbench {

/// What the screen shows of a window, as a PNG file. StepError when it cannot be kept.
void savePicture(HWND window, const std::wstring& path);

}  // namespace kebu::workbench
