#pragma once

#include "windows/support/windows_api.h"
#include "windows/types/kebu_anagkelmoria.h"

namespace kebu::windows {

/// The events of the host's navigator, by their identifiers in the type library's DNavigatorEvents.
enum class NavigatorEvent : DISPID {
  BeforeExportToOffice = 1,
  InitializeLayoutObjectModel = 2,
  InitializeScriptObjectModel = 3
};

inline const IID& navigatorEventsId = __uuidof(::DNavigatorEvents);

}  // namespace kebu::windows
