#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include "windows/types/kebu_anagkelmoria.h"

namespace kebu::windows {

/// The events that the host's navigator tells, by their numbers in the type
/// library's DNavigatorEvents.
enum class NavigatorEvent : DISPID {
  BeforeExportToOffice = 1,
  InitializeLayoutObjectModel = 2,
  InitializeScriptObjectModel = 3
};

inline const IID& navigatorEventsId = __uuidof(::DNavigatorEvents);

}  // namespace kebu::windows
