#pragma once

#include "windows/support/windows_api.h"
#include "workbench/host/message_box.h"

namespace kebu::workbench {

/// Whether a window is a message box of the system's own.
bool isSystemBox(HWND window);
/// What it shows; the icon among those that the system knows.
ShownMessage readSystemBox(HWND window);
/// Clicks the button of an answer.
void pressSystemBox(HWND window, std::int32_t answer);

}  // namespace kebu::workbench
