#include "windows/com/active_dll.h"

#include <memory>

#include "windows/ado/ado_objects.h"
#include "windows/host/dll_members.h"

namespace kebu::windows {

namespace {

/// A plug-in that another library made.
class ForeignDll final : public DllMembers, public Foreign {
 public:
  using Role = host::Cinterface;
  using Foreign::Foreign;

  void setClsGlobal(const Ref<host::ClsGlobal>& given) override { set(L"ClsGlobal", given); }
  Ref<host::ClsGlobal> ClsGlobal() override { return wrapClsGlobal(part(L"ClsGlobal").get()); }
  void setActiveNavigator(const Ref<host::Navigator>& given) override {
    set(L"ActiveNavigator", given);
  }
  Ref<host::Navigator> ActiveNavigator() override {
    return wrapNavigator(part(L"ActiveNavigator").get());
  }
  void setActiveDll(const Ref<host::Cinterface>& given) override { set(L"ActiveDll", given); }
  Ref<host::Cinterface> ActiveDll() override { return wrapActiveDll(part(L"ActiveDll").get()); }
  void setStatusBar(const Ref<host::StatusBar>& given) override { set(L"StatusBar", given); }
  Ref<host::StatusBar> StatusBar() override { return wrapStatusBar(part(L"StatusBar").get()); }
  void setConnection(const Ref<ado::Connection>& given) override { set(L"Connection", given); }
  Ref<ado::Connection> Connection() override { return wrapConnection(part(L"Connection").get()); }

 private:
  const Dispatch& dll() const override { return object_; }
  template <class Kind>
  void set(std::wstring_view property, const Ref<Kind>& given) const {
    object_.put(property, unwrap(given));
  }
};

}  // namespace

Ref<host::Cinterface> wrapActiveDll(IDispatch* object) {
  const ComPtr<IDispatch> given(object);
  const Ref<host::Cinterface> dll = wrap<ForeignDll>(given);
  if (!dll || dynamic_cast<Foreign*>(dll.get())) return dll;
  // An instance of ours lives as long as its COM object is held.
  const auto held = std::make_shared<ComPtr<IDispatch>>(given);
  return std::shared_ptr<host::Cinterface>(held, dll.get());
}

}  // namespace kebu::windows
