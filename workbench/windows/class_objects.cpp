#include "workbench/windows/class_objects.h"

#include <utility>

#include "windows/ado/ado_constants.h"
#include "windows/support/com_object.h"
#include "windows/support/windows_api.h"
#include "workbench/windows/ado_automation.h"

namespace kebu::workbench {

using windows::ComPtr;

namespace {

class ClassObject final : public windows::ComObject<IClassFactory> {
 public:
  using Make = std::function<ComPtr<IDispatch>()>;
  explicit ClassObject(Make make) : make_(std::move(make)) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID wanted, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return make_()->QueryInterface(wanted, object);
  }
  STDMETHODIMP LockServer(BOOL /*lock*/) override { return S_OK; }

 private:
  Make make_;
};

}  // namespace

ClassObjects::ClassObjects(ado::Library& library,
                           std::function<Ref<ado::Connection>()> newConnection) {
  const std::pair<GUID, ClassObject::Make> classes[] = {
      {windows::recordsetClass, [&library] { return automate(library.newRecordset()); }},
      {windows::commandClass, [&library] { return automate(library.newCommand()); }},
      {windows::connectionClass, [newConnection] { return automate(newConnection()); }},
  };
  for (const auto& [id, make] : classes) {
    const auto object = ComPtr<IUnknown>::adopt(new ClassObject(make));
    DWORD cookie = 0;
    if (FAILED(CoRegisterClassObject(id, object.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                     &cookie))) {
      throw RuntimeError(429, "The database objects cannot be offered to this process.");
    }
    cookies_.push_back(cookie);
  }
}

ClassObjects::~ClassObjects() {
  for (const DWORD cookie : cookies_) CoRevokeClassObject(cookie);
}

}  // namespace kebu::workbench
