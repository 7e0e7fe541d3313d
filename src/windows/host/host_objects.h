#pragma once

#include "common/ref.h"
#include "common/value.h"
#include "host/cls_global.h"
#include "host/named_object.h"
#include "host/navigator.h"
#include "host/services.h"
#include "windows/support/identity.h"
#include "windows/support/windows_api.h"

// The host's COM objects in their roles. Each is called by late binding under the member names of
// host/. A null object gives a null reference, an object of ours is given back as itself, and
// unwrap() returns the COM object that was wrapped.
namespace kebu::windows {

Ref<host::ClsGlobal> wrapClsGlobal(IDispatch* object);
/// Receives the navigator's events for as long as the reference lives. An object that raises none
/// of them is kept all the same.
Ref<host::Navigator> wrapNavigator(IDispatch* object);
Ref<host::StatusBar> wrapStatusBar(IDispatch* object);
Ref<host::NamedObject> wrapNamedObject(IDispatch* object);
/// An object that is only passed on.
Ref<Object> wrapObject(IDispatch* object);

}  // namespace kebu::windows
