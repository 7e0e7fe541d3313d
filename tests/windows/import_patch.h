#pragma once

#include "windows/support/windows_api.h"

namespace kebu::tests {

/// Replaces a function that a module imports, as long as this lives. So a test shows the module a
/// Windows that is unlike this one.
class ImportPatch {
 public:
  /// std::runtime_error when the module does not import the function.
  template <class Function>
  ImportPatch(HMODULE module, const char* function, Function* replacement)
      : ImportPatch(module, function, reinterpret_cast<void*>(replacement), 0) {}
  ~ImportPatch();
  ImportPatch(const ImportPatch&) = delete;
  ImportPatch& operator=(const ImportPatch&) = delete;

 private:
  ImportPatch(HMODULE module, const char* function, void* replacement, int);

  void** place_;
  void* original_;
};

}  // namespace kebu::tests
