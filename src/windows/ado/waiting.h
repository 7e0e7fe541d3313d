#pragma once

#include <functional>

#include "windows/support/dispatch.h"

namespace kebu::windows {

/// Comes back when an object of ADO's is done with what it was told to do
/// asynchronously; until then `meanwhile` is called, some sixty times a second.
/// An error of the work is raised here, as RuntimeError.
void await(const Dispatch& object, const std::function<void()>& meanwhile);

}  // namespace kebu::windows
