#pragma once

#include <functional>

#include "windows/support/dispatch.h"

namespace kebu::windows {

/// Comes back when an object of ADO's is done with what it was told to do
/// asynchronously; until then `goOn` is called, some sixty times a second. When it
/// gives false the object is told to cancel the work, and the result is false. An
/// error of work that was not cancelled is raised here, as RuntimeError.
[[nodiscard]] bool await(const Dispatch& object, const std::function<bool()>& goOn);

}  // namespace kebu::windows
