#pragma once

#include <optional>
#include <string>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// The file of a page of the user guide, such as "pagina-3": in the folder "guida" beside the
/// DLL or one folder above it. Without that page the guide's first one; nothing without a guide.
std::optional<std::wstring> userGuideFile(const std::wstring& page);

/// Opens the file with the program that the user has for it; false when that fails.
bool openUserGuide(HWND owner, const std::wstring& file);

}  // namespace kebu::windows
