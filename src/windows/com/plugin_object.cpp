#include "windows/com/plugin_object.h"

#include "common/trap.h"
#include "windows/ado/ado_objects.h"
#include "windows/com/active_dll.h"
#include "windows/com/enumerator.h"
#include "windows/com/plugin_runtime.h"
#include "windows/host/host_objects.h"

namespace kebu::windows {

namespace {

using Members = host::Cinterface;

constexpr DISPID dataTransferEvent = 1;

// Results of the class, as COM types.

void give(bool value, VARIANT_BOOL& target) {
  target = value ? VARIANT_TRUE : VARIANT_FALSE;
}
void give(std::int32_t value, LONG& target) {
  target = value;
}
void give(const Value& value, VARIANT& target) {
  target = toVariant(value).detach();
}
template <class Role>
void give(const Ref<Role>& value, IDispatch*& target) {
  target = unwrap(value).detach();
}

bool isSet(VARIANT_BOOL value) {
  return value != VARIANT_FALSE;
}

}  // namespace

PluginObject::PluginObject()
    : class_(plugin::CLSKB_ANAGKELMORIA::create(PluginRuntime::use())),
      entry_(class_.shared(), this),
      dataTransfer_(__uuidof(::DCLSKB_ANAGKELMORIAEvents), *this),
      dataTransferred_(class_->DataTransfer.connect([this](const Value& data) {
        dataTransfer_.raise(dataTransferEvent, toVariant(data));
      })) {}

template <class Work>
HRESULT PluginObject::carryOut(Work&& work) {
  const ComPtr<IUnknown> alive(identity());
  ignoringErrors(work);
  return S_OK;
}

/// `argument` makes the argument, so that an error in making it is ignored, too.
template <class Member, class Argument>
HRESULT PluginObject::set(Member member, Argument&& argument) {
  return carryOut([&] { ((*class_).*member)(argument()); });
}

template <class Member, class Target>
HRESULT PluginObject::get(Member member, Target* target) {
  if (!target) return E_POINTER;
  *target = Target{};
  return carryOut([&] { give(((*class_).*member)(), *target); });
}

STDMETHODIMP PluginObject::putref_ClsGlobal(IDispatch* value) {
  return set(&Members::setClsGlobal, [&] { return wrapClsGlobal(value); });
}
STDMETHODIMP PluginObject::get_ClsGlobal(IDispatch** value) {
  return get(&Members::ClsGlobal, value);
}
STDMETHODIMP PluginObject::putref_ActiveFrame(IDispatch* value) {
  return set(&Members::setActiveFrame, [&] { return wrapNamedObject(value); });
}
STDMETHODIMP PluginObject::get_ActiveFrame(IDispatch** value) {
  return get(&Members::ActiveFrame, value);
}
STDMETHODIMP PluginObject::putref_ActiveNavigator(IDispatch* value) {
  return set(&Members::setActiveNavigator, [&] { return wrapNavigator(value); });
}
STDMETHODIMP PluginObject::get_ActiveNavigator(IDispatch** value) {
  return get(&Members::ActiveNavigator, value);
}
STDMETHODIMP PluginObject::putref_ActiveDll(IDispatch* value) {
  return set(&Members::setActiveDll, [&] { return wrapActiveDll(value); });
}
STDMETHODIMP PluginObject::get_ActiveDll(IDispatch** value) {
  return get(&Members::ActiveDll, value);
}
STDMETHODIMP PluginObject::putref_StatusBar(IDispatch* value) {
  return set(&Members::setStatusBar, [&] { return wrapStatusBar(value); });
}
STDMETHODIMP PluginObject::get_StatusBar(IDispatch** value) {
  return get(&Members::StatusBar, value);
}
STDMETHODIMP PluginObject::put_CanInsert(VARIANT_BOOL value) {
  return set(&Members::setCanInsert, [&] { return isSet(value); });
}
STDMETHODIMP PluginObject::get_CanInsert(VARIANT_BOOL* value) {
  return get(&Members::CanInsert, value);
}
STDMETHODIMP PluginObject::put_CanDelete(VARIANT_BOOL value) {
  return set(&Members::setCanDelete, [&] { return isSet(value); });
}
STDMETHODIMP PluginObject::get_CanDelete(VARIANT_BOOL* value) {
  return get(&Members::CanDelete, value);
}
STDMETHODIMP PluginObject::put_CanUpdate(VARIANT_BOOL value) {
  return set(&Members::setCanUpdate, [&] { return isSet(value); });
}
STDMETHODIMP PluginObject::get_CanUpdate(VARIANT_BOOL* value) {
  return get(&Members::CanUpdate, value);
}
STDMETHODIMP PluginObject::put_CanQbe(VARIANT_BOOL value) {
  return set(&Members::setCanQbe, [&] { return isSet(value); });
}
STDMETHODIMP PluginObject::get_CanQbe(VARIANT_BOOL* value) {
  return get(&Members::CanQbe, value);
}
STDMETHODIMP PluginObject::put_WindowState(LONG value) {
  return set(&Members::setWindowState, [&] { return value; });
}
STDMETHODIMP PluginObject::get_WindowState(LONG* value) {
  return get(&Members::WindowState, value);
}
STDMETHODIMP PluginObject::put_WindowModal(VARIANT_BOOL value) {
  return set(&Members::setWindowModal, [&] { return isSet(value); });
}
STDMETHODIMP PluginObject::get_WindowModal(VARIANT_BOOL* value) {
  return get(&Members::WindowModal, value);
}
STDMETHODIMP PluginObject::put_ProgramMode(LONG value) {
  return set(&Members::setProgramMode, [&] { return value; });
}
STDMETHODIMP PluginObject::get_ProgramMode(LONG* value) {
  return get(&Members::ProgramMode, value);
}
STDMETHODIMP PluginObject::put_MenuModulo(VARIANT value) {
  return set(&Members::setMenuModulo, [&] { return keptValue(value); });
}
STDMETHODIMP PluginObject::get_MenuModulo(VARIANT* value) {
  return get(&Members::MenuModulo, value);
}
STDMETHODIMP PluginObject::put_MenuPadre(VARIANT value) {
  return set(&Members::setMenuPadre, [&] { return keptValue(value); });
}
STDMETHODIMP PluginObject::get_MenuPadre(VARIANT* value) {
  return get(&Members::MenuPadre, value);
}
STDMETHODIMP PluginObject::put_MenuProg(VARIANT value) {
  return set(&Members::setMenuProg, [&] { return keptValue(value); });
}
STDMETHODIMP PluginObject::get_MenuProg(VARIANT* value) {
  return get(&Members::MenuProg, value);
}
STDMETHODIMP PluginObject::put_Caption(VARIANT value) {
  return set(&Members::setCaption, [&] { return toValue(value); });
}
STDMETHODIMP PluginObject::get_Caption(VARIANT* value) {
  return get(&Members::Caption, value);
}
STDMETHODIMP PluginObject::put_hwndParent(LONG value) {
  return set(&Members::setHwndParent, [&] { return value; });
}
STDMETHODIMP PluginObject::get_hwndParent(LONG* value) {
  return get(&Members::hwndParent, value);
}
STDMETHODIMP PluginObject::putref_Connection(IDispatch* value) {
  return set(&Members::setConnection, [&] { return wrapConnection(value); });
}
STDMETHODIMP PluginObject::get_Connection(IDispatch** value) {
  return get(&Members::Connection, value);
}
STDMETHODIMP PluginObject::get_Cwindow(IDispatch** value) {
  return get(&Members::Cwindow, value);
}
STDMETHODIMP PluginObject::put_Top(VARIANT value) {
  return set(&Members::setTop, [&] { return toValue(value); });
}
STDMETHODIMP PluginObject::get_Top(VARIANT* value) {
  return get(&Members::Top, value);
}
STDMETHODIMP PluginObject::put_Left(VARIANT value) {
  return set(&Members::setLeft, [&] { return toValue(value); });
}
STDMETHODIMP PluginObject::get_Left(VARIANT* value) {
  return get(&Members::Left, value);
}
STDMETHODIMP PluginObject::putref_ClsVoceMenu(IDispatch* value) {
  return set(&Members::setClsVoceMenu, [&] { return wrapObject(value); });
}
STDMETHODIMP PluginObject::get_ClsVoceMenu(IDispatch** value) {
  return get(&Members::ClsVoceMenu, value);
}
STDMETHODIMP PluginObject::put_IsActive(VARIANT_BOOL value) {
  return set(&Members::setIsActive, [&] { return isSet(value); });
}
STDMETHODIMP PluginObject::get_IsActive(VARIANT_BOOL* value) {
  return get(&Members::IsActive, value);
}
STDMETHODIMP PluginObject::put_IsCalled(VARIANT_BOOL value) {
  return set(&Members::setIsCalled, [&] { return isSet(value); });
}
STDMETHODIMP PluginObject::get_IsCalled(VARIANT_BOOL* value) {
  return get(&Members::IsCalled, value);
}
STDMETHODIMP PluginObject::put_Filtro(VARIANT value) {
  return set(&Members::setFiltro, [&] { return toValue(value); });
}
STDMETHODIMP PluginObject::get_Filtro(VARIANT* value) {
  return get(&Members::Filtro, value);
}

STDMETHODIMP PluginObject::ShowForm(VARIANT* result) {
  return get(&Members::ShowForm, result);
}
STDMETHODIMP PluginObject::CloseForm(VARIANT* result) {
  return get(&Members::CloseForm, result);
}
STDMETHODIMP PluginObject::TransferData(VARIANT Data, VARIANT* result) {
  if (!result) return E_POINTER;
  VariantInit(result);
  return carryOut([&] { give(class_->TransferData(keptValue(Data)), *result); });
}

STDMETHODIMP PluginObject::GetClassInfo(ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  return hresultOf([&] { *info = typeInfoOf(__uuidof(::CLSKB_ANAGKELMORIA)).detach(); });
}

STDMETHODIMP PluginObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (!points) return E_POINTER;
  *points = nullptr;
  return hresultOf(
      [&] { *points = new ConnectionPoints({ComPtr<IConnectionPoint>(&dataTransfer_)}); });
}

STDMETHODIMP PluginObject::FindConnectionPoint(REFIID events, IConnectionPoint** point) {
  if (!point) return E_POINTER;
  *point = nullptr;
  if (events != __uuidof(::DCLSKB_ANAGKELMORIAEvents)) return CONNECT_E_NOCONNECTION;
  return copyTo<IConnectionPoint>(&dataTransfer_, point);
}

}  // namespace kebu::windows
