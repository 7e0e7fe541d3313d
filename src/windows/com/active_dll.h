#pragma once

#include "host/cinterface.h"
#include "windows/support/identity.h"

namespace kebu::windows {

/// A plug-in that the host gives: an instance of ours as itself, another object by late binding;
/// absent for none.
Ref<host::Cinterface> wrapActiveDll(IDispatch* object);

}  // namespace kebu::windows
