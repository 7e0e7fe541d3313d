#pragma once

#include <string>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Describes a stock control that no view belongs to, such as the box in which a cell is edited, to
/// assistive technology: `kind` as in an Inspection, "EditBox" or "ComboBox". Ends with the window.
void describeStock(HWND window, const wchar_t* kind, const std::wstring& name);

}  // namespace kebu::windows
