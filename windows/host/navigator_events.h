#pragma once

#include <windows.h>

// The dispatch interface by which the host's navigator tells its events, as the
// type library (windows/com/) describes it.
namespace kebu::windows {

inline constexpr IID navigatorEventsId = {
    0x656568BF, 0xA1EF, 0x4898, {0x9C, 0x92, 0x2A, 0xC5, 0x6A, 0x41, 0xD4, 0xD1}};

enum class NavigatorEvent : DISPID {
  BeforeExportToOffice = 1,
  InitializeLayoutObjectModel = 2,
  InitializeScriptObjectModel = 3
};

}  // namespace kebu::windows
