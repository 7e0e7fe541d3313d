#pragma once

#include "windows/support/com_object.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Creates instances of the plug-in's class.
class ClassFactory final : public ComObject<IClassFactory> {
 public:
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID wanted, void** object) override;
  STDMETHODIMP LockServer(BOOL lock) override;
};

}  // namespace kebu::windows
