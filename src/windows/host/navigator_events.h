#pragma once

#include <utility>
#include <vector>

#include "windows/support/com_ptr.h"
#include "windows/support/windows_api.h"
#include "windows/types/kebu_anagkelmoria.h"

namespace kebu::windows {

/// The events of the host's navigator that the plug-in hears, by their identifiers in the type
/// library's DNavigatorEvents.
enum class NavigatorEvent : DISPID {
  BeforeExportToOffice = 1,
  InitializeLayoutObjectModel = 2,
  InitializeScriptObjectModel = 3
};

inline const IID& navigatorEventsId = __uuidof(::DNavigatorEvents);

/// An interface by which a navigator raises its events.
struct NavigatorEventInterface {
  IID id = navigatorEventsId;
  /// A dual interface may be called by its vtable, which a receiver of late-bound calls does not
  /// have.
  bool isDual = false;
  std::vector<std::pair<DISPID, NavigatorEvent>> events = {};
};

/// The type library's own interface.
NavigatorEventInterface ownNavigatorEvents();

/// The interfaces by which the navigator may raise the events, the likeliest first: the default
/// source that the object's class describes, with the events found by their names, and then the
/// type library's own.
std::vector<NavigatorEventInterface> eventInterfacesOf(const ComPtr<IDispatch>& navigator);

}  // namespace kebu::windows
