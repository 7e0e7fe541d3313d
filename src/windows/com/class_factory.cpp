#include "windows/com/class_factory.h"

#include "windows/com/plugin_object.h"
#include "windows/com/system_platform.h"

namespace kebu::windows {

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID wanted, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  HRESULT result = S_OK;
  const HRESULT made = hresultOf([&] {
    setRuntimeLocale(localeOf(GetThreadLocale()));
    result = newPluginObject()->QueryInterface(wanted, object);
  });
  return FAILED(made) ? made : result;
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
  if (lock) {
    ModuleLock::add();
  } else {
    ModuleLock::remove();
  }
  return S_OK;
}

}  // namespace kebu::windows
