#pragma once

namespace kebu::windows {

/// Enters class, name and type library into the registry, for everybody or, by
/// who may not write there, not at all: RuntimeError, and what was entered is
/// taken out again.
void registerServer();
/// Takes out all that registerServer enters; what is not there is no error.
void unregisterServer();

}  // namespace kebu::windows
