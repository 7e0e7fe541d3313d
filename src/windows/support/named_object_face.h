#pragma once

#include <memory>

#include "host/named_object.h"
#include "windows/support/com_ptr.h"

namespace kebu::windows {

/// A new COM face for a window or control of ours, whose one member is its
/// Name; holds it.
ComPtr<IDispatch> newNamedObjectFace(const std::shared_ptr<host::NamedObject>& object);

}  // namespace kebu::windows
