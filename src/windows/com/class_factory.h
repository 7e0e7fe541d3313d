#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <unknwn.h>

#include "windows/support/com_object.h"

namespace kebu::windows {

/// Makes instances of the one class.
class ClassFactory final : public ComObject<IClassFactory> {
 public:
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID wanted, void** object) override;
  STDMETHODIMP LockServer(BOOL lock) override;
};

}  // namespace kebu::windows
