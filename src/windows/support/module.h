#pragma once

#include <string>

#include "windows/support/com_ptr.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// The library that this code was loaded from.
HINSTANCE moduleHandle();
std::wstring modulePath();
/// A description of its type library; throws when there is none.
ComPtr<ITypeInfo> typeInfoOf(REFIID type);

/// While one of these lives the library cannot be unloaded.
class ModuleLock {
 public:
  ModuleLock() { add(); }
  ModuleLock(const ModuleLock&) { add(); }
  ModuleLock& operator=(const ModuleLock&) = default;
  ~ModuleLock() { remove(); }

  static void add();
  static void remove();
  static bool anyHeld();
};

}  // namespace kebu::windows
