#include "windows/com/active_dll.h"

#include "common/convert.h"
#include "windows/ado/ado_objects.h"
#include "windows/host/host_objects.h"
#include "windows/support/values.h"

namespace kebu::windows {

namespace {

/// A plug-in of somebody else's making, members by their names in the contract.
class ForeignDll final : public host::Cinterface, public Foreign {
 public:
  using Role = host::Cinterface;
  using Foreign::Foreign;

  void setClsGlobal(const Ref<host::ClsGlobal>& given) override { assign(L"ClsGlobal", given); }
  Ref<host::ClsGlobal> ClsGlobal() override { return wrapClsGlobal(part(L"ClsGlobal").get()); }
  void setActiveFrame(const Ref<host::NamedObject>& given) override {
    assign(L"ActiveFrame", given);
  }
  Ref<host::NamedObject> ActiveFrame() override {
    return wrapNamedObject(part(L"ActiveFrame").get());
  }
  void setActiveNavigator(const Ref<host::Navigator>& given) override {
    assign(L"ActiveNavigator", given);
  }
  Ref<host::Navigator> ActiveNavigator() override {
    return wrapNavigator(part(L"ActiveNavigator").get());
  }
  void setActiveDll(const Ref<host::Cinterface>& given) override { assign(L"ActiveDll", given); }
  Ref<host::Cinterface> ActiveDll() override { return wrapActiveDll(part(L"ActiveDll").get()); }
  void setStatusBar(const Ref<host::StatusBar>& given) override { assign(L"StatusBar", given); }
  Ref<host::StatusBar> StatusBar() override { return wrapStatusBar(part(L"StatusBar").get()); }
  void setCanInsert(bool given) override { put(L"CanInsert", given); }
  bool CanInsert() override { return toBoolean(value(L"CanInsert")); }
  void setCanDelete(bool given) override { put(L"CanDelete", given); }
  bool CanDelete() override { return toBoolean(value(L"CanDelete")); }
  void setCanUpdate(bool given) override { put(L"CanUpdate", given); }
  bool CanUpdate() override { return toBoolean(value(L"CanUpdate")); }
  void setCanQbe(bool given) override { put(L"CanQbe", given); }
  bool CanQbe() override { return toBoolean(value(L"CanQbe")); }
  void setWindowState(std::int32_t given) override { put(L"WindowState", given); }
  std::int32_t WindowState() override { return toInt32(value(L"WindowState")); }
  void setWindowModal(bool given) override { put(L"WindowModal", given); }
  bool WindowModal() override { return toBoolean(value(L"WindowModal")); }
  void setProgramMode(std::int32_t given) override { put(L"ProgramMode", given); }
  std::int32_t ProgramMode() override { return toInt32(value(L"ProgramMode")); }
  void setMenuModulo(const Value& given) override { put(L"MenuModulo", given); }
  Value MenuModulo() override { return value(L"MenuModulo"); }
  void setMenuPadre(const Value& given) override { put(L"MenuPadre", given); }
  Value MenuPadre() override { return value(L"MenuPadre"); }
  void setMenuProg(const Value& given) override { put(L"MenuProg", given); }
  Value MenuProg() override { return value(L"MenuProg"); }
  void setCaption(const Value& given) override { put(L"Caption", given); }
  Value Caption() override { return value(L"Caption"); }
  void setHwndParent(std::int32_t given) override { put(L"hwndParent", given); }
  std::int32_t hwndParent() override { return toInt32(value(L"hwndParent")); }
  void setConnection(const Ref<ado::Connection>& given) override { assign(L"Connection", given); }
  Ref<ado::Connection> Connection() override { return wrapConnection(part(L"Connection").get()); }
  Ref<host::NamedObject> Cwindow() override { return wrapNamedObject(part(L"Cwindow").get()); }
  void setTop(const Value& given) override { put(L"Top", given); }
  Value Top() override { return value(L"Top"); }
  void setLeft(const Value& given) override { put(L"Left", given); }
  Value Left() override { return value(L"Left"); }
  void setClsVoceMenu(const Ref<Object>& given) override { assign(L"ClsVoceMenu", given); }
  Ref<Object> ClsVoceMenu() override { return wrapObject(part(L"ClsVoceMenu").get()); }
  void setIsActive(bool given) override { put(L"IsActive", given); }
  bool IsActive() override { return toBoolean(value(L"IsActive")); }
  void setIsCalled(bool given) override { put(L"IsCalled", given); }
  bool IsCalled() override { return toBoolean(value(L"IsCalled")); }
  void setFiltro(const Value& given) override { put(L"Filtro", given); }
  Value Filtro() override { return value(L"Filtro"); }

  Value ShowForm() override { return value(L"ShowForm"); }
  Value CloseForm() override { return value(L"CloseForm"); }
  Value TransferData(const Value& data) override {
    return toValue(object_.call(L"TransferData", {toVariant(data)}).get());
  }

 private:
  Value value(const wchar_t* member) const { return toValue(object_.call(member).get()); }
  ComPtr<IDispatch> part(const wchar_t* member) const { return object_.get(member).object(); }
  void put(const wchar_t* member, const Value& given) const {
    object_.put(member, toVariant(given));
  }
  template <class Kind>
  void assign(const wchar_t* member, const Ref<Kind>& given) const {
    object_.put(member, Variant(unwrap(given)));
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
