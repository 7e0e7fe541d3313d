#pragma once

#include "host/cls_global.h"
#include "host/navigator.h"
#include "host/services.h"
#include "workbench/windows/variant.h"

namespace kebu::workbench {

// The host's objects for a plug-in that calls them by late binding: the members
// have the names that they have in host/. Nothing for none.

ComRef<IDispatch> automate(const Ref<host::ClsGlobal>& global);
ComRef<IDispatch> automate(const Ref<host::StatusBar>& bar);
ComRef<IDispatch> automate(const Ref<host::LayoutModel>& model);
/// A connection point for `events` passes the navigator's events on.
ComRef<IDispatch> automate(const Ref<host::Navigator>& navigator, REFIID events);

}  // namespace kebu::workbench
