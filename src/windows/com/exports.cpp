// The four entry points of the library, which COM wants of every in-process server.
#include "windows/com/class_factory.h"
#include "windows/com/plugin_runtime.h"
#include "windows/com/registration.h"
#include "windows/support/module.h"
#include "windows/support/windows_api.h"
#include "windows/types/kebu_anagkelmoria.h"

using namespace kebu::windows;

STDAPI DllGetClassObject(REFCLSID wantedClass, REFIID wanted, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (wantedClass != __uuidof(CLSKB_ANAGKELMORIA)) return CLASS_E_CLASSNOTAVAILABLE;
  HRESULT result = S_OK;
  const HRESULT made = hresultOf([&] {
    const auto factory = ComPtr<ClassFactory>::adopt(new ClassFactory);
    result = factory->QueryInterface(wanted, object);
  });
  return FAILED(made) ? made : result;
}

STDAPI DllCanUnloadNow() {
  return PluginRuntime::endWhenUnused() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return hresultOf(registerServer);
}

STDAPI DllUnregisterServer() {
  return hresultOf(unregisterServer);
}
