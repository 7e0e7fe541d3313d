#pragma once

#include "host/cinterface.h"
#include "windows/support/identity.h"

namespace kebu::windows {

/// The plug-in under the contract: one of our own instances as itself, another
/// object called by late binding; absent for none.
Ref<host::Cinterface> wrapActiveDll(IDispatch* object);

}  // namespace kebu::windows
