#pragma once

#include <memory>

#include "host/named_object.h"
#include "windows/support/com_ptr.h"

namespace kebu::windows {

/// A new COM object that stands for a window or control of ours and holds it. Its members are Name
/// and, of the plug-in's window, those that the host may call.
ComPtr<IDispatch> newNamedObjectFace(const std::shared_ptr<host::NamedObject>& object);

}  // namespace kebu::windows
