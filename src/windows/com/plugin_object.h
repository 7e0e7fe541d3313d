#pragma once

#include "plugin/clskb_anagkelmoria.h"
#include "windows/com/event_source.h"
#include "windows/support/com_object.h"
#include "windows/support/identity.h"
#include "windows/support/values.h"
#include "windows/support/windows_api.h"
#include "windows/types/kebu_anagkelmoria.h"

namespace kebu::windows {

/// The plug-in's class as a COM object. Members of the contract return no error, except E_POINTER
/// for a result without a place.
class PluginObject final
    : public DualObject<::Cinterface, IProvideClassInfo, IConnectionPointContainer> {
 public:
  PluginObject();

  STDMETHODIMP putref_ClsGlobal(IDispatch* value) override;
  STDMETHODIMP get_ClsGlobal(IDispatch** value) override;
  STDMETHODIMP putref_ActiveFrame(IDispatch* value) override;
  STDMETHODIMP get_ActiveFrame(IDispatch** value) override;
  STDMETHODIMP putref_ActiveNavigator(IDispatch* value) override;
  STDMETHODIMP get_ActiveNavigator(IDispatch** value) override;
  STDMETHODIMP putref_ActiveDll(IDispatch* value) override;
  STDMETHODIMP get_ActiveDll(IDispatch** value) override;
  STDMETHODIMP putref_StatusBar(IDispatch* value) override;
  STDMETHODIMP get_StatusBar(IDispatch** value) override;
  STDMETHODIMP put_CanInsert(VARIANT_BOOL value) override;
  STDMETHODIMP get_CanInsert(VARIANT_BOOL* value) override;
  STDMETHODIMP put_CanDelete(VARIANT_BOOL value) override;
  STDMETHODIMP get_CanDelete(VARIANT_BOOL* value) override;
  STDMETHODIMP put_CanUpdate(VARIANT_BOOL value) override;
  STDMETHODIMP get_CanUpdate(VARIANT_BOOL* value) override;
  STDMETHODIMP put_CanQbe(VARIANT_BOOL value) override;
  STDMETHODIMP get_CanQbe(VARIANT_BOOL* value) override;
  STDMETHODIMP put_WindowState(LONG value) override;
  STDMETHODIMP get_WindowState(LONG* value) override;
  STDMETHODIMP put_WindowModal(VARIANT_BOOL value) override;
  STDMETHODIMP get_WindowModal(VARIANT_BOOL* value) override;
  STDMETHODIMP put_ProgramMode(LONG value) override;
  STDMETHODIMP get_ProgramMode(LONG* value) override;
  STDMETHODIMP put_MenuModulo(VARIANT value) override;
  STDMETHODIMP get_MenuModulo(VARIANT* value) override;
  STDMETHODIMP put_MenuPadre(VARIANT value) override;
  STDMETHODIMP get_MenuPadre(VARIANT* value) override;
  STDMETHODIMP put_MenuProg(VARIANT value) override;
  STDMETHODIMP get_MenuProg(VARIANT* value) override;
  STDMETHODIMP put_Caption(VARIANT value) override;
  STDMETHODIMP get_Caption(VARIANT* value) override;
  STDMETHODIMP put_hwndParent(LONG value) override;
  STDMETHODIMP get_hwndParent(LONG* value) override;
  STDMETHODIMP putref_Connection(IDispatch* value) override;
  STDMETHODIMP get_Connection(IDispatch** value) override;
  STDMETHODIMP get_Cwindow(IDispatch** value) override;
  STDMETHODIMP put_Top(VARIANT value) override;
  STDMETHODIMP get_Top(VARIANT* value) override;
  STDMETHODIMP put_Left(VARIANT value) override;
  STDMETHODIMP get_Left(VARIANT* value) override;
  STDMETHODIMP putref_ClsVoceMenu(IDispatch* value) override;
  STDMETHODIMP get_ClsVoceMenu(IDispatch** value) override;
  STDMETHODIMP put_IsActive(VARIANT_BOOL value) override;
  STDMETHODIMP get_IsActive(VARIANT_BOOL* value) override;
  STDMETHODIMP put_IsCalled(VARIANT_BOOL value) override;
  STDMETHODIMP get_IsCalled(VARIANT_BOOL* value) override;
  STDMETHODIMP put_Filtro(VARIANT value) override;
  STDMETHODIMP get_Filtro(VARIANT* value) override;
  STDMETHODIMP ShowForm(VARIANT* result) override;
  STDMETHODIMP CloseForm(VARIANT* result) override;
  STDMETHODIMP TransferData(VARIANT Data, VARIANT* result) override;

  STDMETHODIMP GetClassInfo(ITypeInfo** info) override;

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
  STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** point) override;

 private:
  /// Calls the class and ignores errors; the object lives until the call returns.
  template <class Work>
  HRESULT carryOut(Work&& work);
  template <class Member, class Argument>
  HRESULT set(Member member, Argument&& argument);
  template <class Member, class Target>
  HRESULT get(Member member, Target* target);

  Ref<plugin::CLSKB_ANAGKELMORIA> class_;
  FaceEntry entry_;
  EventSource dataTransfer_;
  Subscription dataTransferred_;
};

}  // namespace kebu::windows
