#include "windows/com/plugin_object.h"

#include "common/swallowed_errors.h"
#include "plugin/clskb_anagkelmoria.h"
#include "windows/ado/ado_objects.h"
#include "windows/com/active_dll.h"
#include "windows/com/event_source.h"
#include "windows/com/plugin_runtime.h"
#include "windows/com/system_platform.h"
#include "windows/host/host_objects.h"
#include "windows/support/com_object.h"
#include "windows/support/enumerator.h"
#include "windows/support/identity.h"
#include "windows/support/values.h"
#include "windows/views/window/activity.h"

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

/// The plug-in's class as a COM object. Members of the contract return no error, except E_POINTER
/// for a result without a place.
class PluginObject final
    : public DualObject<::Cinterface, IProvideClassInfo, IConnectionPointContainer> {
 public:
  PluginObject()
      : class_(plugin::CLSKB_ANAGKELMORIA::create(PluginRuntime::use())),
        entry_(class_.shared(), this),
        dataTransfer_(__uuidof(::DCLSKB_ANAGKELMORIAEvents), *this),
        dataTransferred_(class_->DataTransfer.connect([this](const Value& data) {
          dataTransfer_.raise("DataTransfer", dataTransferEvent, toVariant(data));
        })) {}

  STDMETHODIMP putref_ClsGlobal(IDispatch* value) override {
    return set(&Members::setClsGlobal, [&] { return wrapClsGlobal(value); });
  }
  STDMETHODIMP get_ClsGlobal(IDispatch** value) override { return get(&Members::ClsGlobal, value); }
  STDMETHODIMP putref_ActiveFrame(IDispatch* value) override {
    return set(&Members::setActiveFrame, [&] { return wrapNamedObject(value); });
  }
  STDMETHODIMP get_ActiveFrame(IDispatch** value) override {
    return get(&Members::ActiveFrame, value);
  }
  STDMETHODIMP putref_ActiveNavigator(IDispatch* value) override {
    return set(&Members::setActiveNavigator, [&] { return wrapNavigator(value); });
  }
  STDMETHODIMP get_ActiveNavigator(IDispatch** value) override {
    return get(&Members::ActiveNavigator, value);
  }
  STDMETHODIMP putref_ActiveDll(IDispatch* value) override {
    return set(&Members::setActiveDll, [&] { return wrapActiveDll(value); });
  }
  STDMETHODIMP get_ActiveDll(IDispatch** value) override { return get(&Members::ActiveDll, value); }
  STDMETHODIMP putref_StatusBar(IDispatch* value) override {
    return set(&Members::setStatusBar, [&] { return wrapStatusBar(value); });
  }
  STDMETHODIMP get_StatusBar(IDispatch** value) override { return get(&Members::StatusBar, value); }
  STDMETHODIMP put_CanInsert(VARIANT_BOOL value) override {
    return set(&Members::setCanInsert, [&] { return isSet(value); });
  }
  STDMETHODIMP get_CanInsert(VARIANT_BOOL* value) override {
    return get(&Members::CanInsert, value);
  }
  STDMETHODIMP put_CanDelete(VARIANT_BOOL value) override {
    return set(&Members::setCanDelete, [&] { return isSet(value); });
  }
  STDMETHODIMP get_CanDelete(VARIANT_BOOL* value) override {
    return get(&Members::CanDelete, value);
  }
  STDMETHODIMP put_CanUpdate(VARIANT_BOOL value) override {
    return set(&Members::setCanUpdate, [&] { return isSet(value); });
  }
  STDMETHODIMP get_CanUpdate(VARIANT_BOOL* value) override {
    return get(&Members::CanUpdate, value);
  }
  STDMETHODIMP put_CanQbe(VARIANT_BOOL value) override {
    return set(&Members::setCanQbe, [&] { return isSet(value); });
  }
  STDMETHODIMP get_CanQbe(VARIANT_BOOL* value) override { return get(&Members::CanQbe, value); }
  STDMETHODIMP put_WindowState(LONG value) override {
    return set(&Members::setWindowState, [&] { return value; });
  }
  STDMETHODIMP get_WindowState(LONG* value) override { return get(&Members::WindowState, value); }
  STDMETHODIMP put_WindowModal(VARIANT_BOOL value) override {
    return set(&Members::setWindowModal, [&] { return isSet(value); });
  }
  STDMETHODIMP get_WindowModal(VARIANT_BOOL* value) override {
    return get(&Members::WindowModal, value);
  }
  STDMETHODIMP put_ProgramMode(LONG value) override {
    return set(&Members::setProgramMode, [&] { return value; });
  }
  STDMETHODIMP get_ProgramMode(LONG* value) override { return get(&Members::ProgramMode, value); }
  STDMETHODIMP put_MenuModulo(VARIANT value) override {
    return set(&Members::setMenuModulo, [&] { return keptValue(value); });
  }
  STDMETHODIMP get_MenuModulo(VARIANT* value) override { return get(&Members::MenuModulo, value); }
  STDMETHODIMP put_MenuPadre(VARIANT value) override {
    return set(&Members::setMenuPadre, [&] { return keptValue(value); });
  }
  STDMETHODIMP get_MenuPadre(VARIANT* value) override { return get(&Members::MenuPadre, value); }
  STDMETHODIMP put_MenuProg(VARIANT value) override {
    return set(&Members::setMenuProg, [&] { return keptValue(value); });
  }
  STDMETHODIMP get_MenuProg(VARIANT* value) override { return get(&Members::MenuProg, value); }
  STDMETHODIMP put_Caption(VARIANT value) override {
    return set(&Members::setCaption, [&] { return keptValue(value); });
  }
  STDMETHODIMP get_Caption(VARIANT* value) override { return get(&Members::Caption, value); }
  STDMETHODIMP put_hwndParent(LONG value) override {
    return set(&Members::setHwndParent, [&] { return value; });
  }
  STDMETHODIMP get_hwndParent(LONG* value) override { return get(&Members::hwndParent, value); }
  STDMETHODIMP putref_Connection(IDispatch* value) override {
    return set(&Members::setConnection, [&] { return wrapConnection(value); });
  }
  STDMETHODIMP get_Connection(IDispatch** value) override {
    return get(&Members::Connection, value);
  }
  STDMETHODIMP get_Cwindow(IDispatch** value) override { return get(&Members::Cwindow, value); }
  STDMETHODIMP put_Top(VARIANT value) override {
    return set(&Members::setTop, [&] { return toValue(value); });
  }
  STDMETHODIMP get_Top(VARIANT* value) override { return get(&Members::Top, value); }
  STDMETHODIMP put_Left(VARIANT value) override {
    return set(&Members::setLeft, [&] { return toValue(value); });
  }
  STDMETHODIMP get_Left(VARIANT* value) override { return get(&Members::Left, value); }
  STDMETHODIMP putref_ClsVoceMenu(IDispatch* value) override {
    return set(&Members::setClsVoceMenu, [&] { return wrapObject(value); });
  }
  STDMETHODIMP get_ClsVoceMenu(IDispatch** value) override {
    return get(&Members::ClsVoceMenu, value);
  }
  STDMETHODIMP put_IsActive(VARIANT_BOOL value) override {
    return set(&Members::setIsActive, [&] { return isSet(value); });
  }
  STDMETHODIMP get_IsActive(VARIANT_BOOL* value) override { return get(&Members::IsActive, value); }
  STDMETHODIMP put_IsCalled(VARIANT_BOOL value) override {
    return set(&Members::setIsCalled, [&] { return isSet(value); });
  }
  STDMETHODIMP get_IsCalled(VARIANT_BOOL* value) override { return get(&Members::IsCalled, value); }
  STDMETHODIMP put_Filtro(VARIANT value) override {
    return set(&Members::setFiltro, [&] { return toValue(value); });
  }
  STDMETHODIMP get_Filtro(VARIANT* value) override { return get(&Members::Filtro, value); }

  STDMETHODIMP ShowForm(VARIANT* result) override { return get(&Members::ShowForm, result); }
  STDMETHODIMP CloseForm(VARIANT* result) override { return get(&Members::CloseForm, result); }
  STDMETHODIMP TransferData(VARIANT Data, VARIANT* result) override {
    if (!result) return E_POINTER;
    VariantInit(result);
    return carryOut([&] { give(class_->TransferData(keptValue(Data)), *result); });
  }

  STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
    if (!info) return E_POINTER;
    *info = nullptr;
    return hresultOf([&] { *info = typeInfoOf(__uuidof(::CLSKB_ANAGKELMORIA)).detach(); });
  }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override {
    if (!points) return E_POINTER;
    *points = nullptr;
    return hresultOf(
        [&] { *points = new ConnectionPoints({ComPtr<IConnectionPoint>(&dataTransfer_)}); });
  }

  STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** point) override {
    if (!point) return E_POINTER;
    *point = nullptr;
    if (events != __uuidof(::DCLSKB_ANAGKELMORIAEvents)) return CONNECT_E_NOCONNECTION;
    return copyTo<IConnectionPoint>(&dataTransfer_, point);
  }

 private:
  // `caller` is the name of the calling member.

  /// Calls the class. Errors are ignored, but for a trace line under the caller's name; the object
  /// lives until the call returns.
  template <class Work>
  HRESULT carryOut(Work&& work, const char* caller = __builtin_FUNCTION()) {
    const ComPtr<IUnknown> alive(identity());
    const Activity activity;
    SystemPlatform platform;
    ignoringErrors(platform, caller, work);
    return S_OK;
  }

  /// `argument` makes the argument, so that an error in making it is ignored, too.
  template <class Member, class Argument>
  HRESULT set(Member member, Argument&& argument, const char* caller = __builtin_FUNCTION()) {
    return carryOut([&] { ((*class_).*member)(argument()); }, caller);
  }

  template <class Member, class Target>
  HRESULT get(Member member, Target* target, const char* caller = __builtin_FUNCTION()) {
    if (!target) return E_POINTER;
    *target = Target{};
    return carryOut([&] { give(((*class_).*member)(), *target); }, caller);
  }

  Ref<plugin::CLSKB_ANAGKELMORIA> class_;
  FaceEntry entry_;
  EventSource dataTransfer_;
  Subscription dataTransferred_;
};

}  // namespace

ComPtr<::Cinterface> newPluginObject() {
  return ComPtr<::Cinterface>::adopt(new PluginObject);
}

}  // namespace kebu::windows
