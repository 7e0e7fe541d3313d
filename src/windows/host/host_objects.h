#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <oaidl.h>

#include "common/ref.h"
#include "common/value.h"
#include "host/cls_global.h"
#include "host/named_object.h"
#include "host/navigator.h"
#include "host/services.h"
#include "windows/support/identity.h"

// The host's COM objects in their roles. Each is called by late binding under
// the member names of host/. Nothing is wrapped as nothing; an object of our
// own that a host hands back comes out as itself; unwrap() gives back the very
// object that was wrapped.
namespace kebu::windows {

Ref<host::ClsGlobal> wrapClsGlobal(IDispatch* object);
/// Hears the navigator's events for as long as the reference lives.
/// RuntimeError 459 when the object has no connection point for them.
Ref<host::Navigator> wrapNavigator(IDispatch* object);
Ref<host::StatusBar> wrapStatusBar(IDispatch* object);
Ref<host::NamedObject> wrapNamedObject(IDispatch* object);
/// One that is only passed on.
Ref<Object> wrapObject(IDispatch* object);

}  // namespace kebu::windows
