#pragma once

namespace kebu::windows {

/// Registers class, name and type library. RuntimeError when the user may not write there; then
/// nothing of it stays.
void registerServer();
/// Removes all that registerServer writes; a missing entry is no error.
void unregisterServer();

}  // namespace kebu::windows
