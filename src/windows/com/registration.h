#pragma once

namespace kebu::windows {

/// Registers class, name and type library below HKEY_CLASSES_ROOT, in place of another copy of the
/// DLL. RuntimeError when the user may not write there; then all is as it was before.
void registerServer();
/// Removes what registerServer wrote. What another copy has written since stays, and a missing
/// entry is no error.
void unregisterServer();

}  // namespace kebu::windows
