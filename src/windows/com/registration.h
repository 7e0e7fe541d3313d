#pragma once

namespace kebu::windows {

/// Enters class, name and type library into the registry. RuntimeError for whoever
/// may not write there; then nothing of it stays.
void registerServer();
/// Takes out all that registerServer enters; what is not there is no error.
void unregisterServer();

}  // namespace kebu::windows
