#pragma once

#include "host/cls_global.h"
#include "host/navigator.h"
#include "host/services.h"
#include "windows/support/com_ptr.h"

namespace kebu::workbench {

// The host's objects as COM objects for late binding, with the member names of host/. Absent for a
// null reference.

windows::ComPtr<IDispatch> automate(const Ref<host::ClsGlobal>& global);
windows::ComPtr<IDispatch> automate(const Ref<host::StatusBar>& bar);
windows::ComPtr<IDispatch> automate(const Ref<host::LayoutModel>& model);
/// A connection point for `events` passes the navigator's events on.
windows::ComPtr<IDispatch> automate(const Ref<host::Navigator>& navigator, REFIID events);

}  // namespace kebu::workbench
