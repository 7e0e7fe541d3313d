#pragma once

#include "host/cinterface.h"
#include "windows/support/dispatch.h"
#include "windows/support/values.h"
#include "workbench/windows/plugin_library.h"

namespace kebu::workbench {

/// The plug-in as the host has it, behind the late-bound object that it is. The
/// host's objects are handed over as COM objects; `events` is the interface of
/// the navigator's events.
class DllPlugin : public host::Cinterface {
 public:
  DllPlugin(windows::ComPtr<IDispatch> object, REFIID events)
      : object_(std::move(object)), events_(events) {}

  void setClsGlobal(const Ref<host::ClsGlobal>& value) override;
  Ref<host::ClsGlobal> ClsGlobal() override;
  void setActiveFrame(const Ref<host::NamedObject>& value) override;
  Ref<host::NamedObject> ActiveFrame() override;
  void setActiveNavigator(const Ref<host::Navigator>& value) override;
  Ref<host::Navigator> ActiveNavigator() override;
  void setActiveDll(const Ref<host::Cinterface>& value) override;
  Ref<host::Cinterface> ActiveDll() override;
  void setStatusBar(const Ref<host::StatusBar>& value) override;
  Ref<host::StatusBar> StatusBar() override;
  void setCanInsert(bool value) override { put(L"CanInsert", value); }
  bool CanInsert() override { return flag(L"CanInsert"); }
  void setCanDelete(bool value) override { put(L"CanDelete", value); }
  bool CanDelete() override { return flag(L"CanDelete"); }
  void setCanUpdate(bool value) override { put(L"CanUpdate", value); }
  bool CanUpdate() override { return flag(L"CanUpdate"); }
  void setCanQbe(bool value) override { put(L"CanQbe", value); }
  bool CanQbe() override { return flag(L"CanQbe"); }
  void setWindowState(std::int32_t value) override { put(L"WindowState", value); }
  std::int32_t WindowState() override { return number(L"WindowState"); }
  void setWindowModal(bool value) override { put(L"WindowModal", value); }
  bool WindowModal() override { return flag(L"WindowModal"); }
  void setProgramMode(std::int32_t value) override { put(L"ProgramMode", value); }
  std::int32_t ProgramMode() override { return number(L"ProgramMode"); }
  void setMenuModulo(const Value& value) override { put(L"MenuModulo", value); }
  Value MenuModulo() override { return object_.value(L"MenuModulo"); }
  void setMenuPadre(const Value& value) override { put(L"MenuPadre", value); }
  Value MenuPadre() override { return object_.value(L"MenuPadre"); }
  void setMenuProg(const Value& value) override { put(L"MenuProg", value); }
  Value MenuProg() override { return object_.value(L"MenuProg"); }
  void setCaption(const Value& value) override { put(L"Caption", value); }
  Value Caption() override { return object_.value(L"Caption"); }
  void setHwndParent(std::int32_t value) override { put(L"hwndParent", value); }
  std::int32_t hwndParent() override { return number(L"hwndParent"); }
  void setConnection(const Ref<ado::Connection>& value) override;
  Ref<ado::Connection> Connection() override;
  Ref<host::NamedObject> Cwindow() override;
  void setTop(const Value& value) override { put(L"Top", value); }
  Value Top() override { return object_.value(L"Top"); }
  void setLeft(const Value& value) override { put(L"Left", value); }
  Value Left() override { return object_.value(L"Left"); }
  void setClsVoceMenu(const Ref<Object>& value) override;
  Ref<Object> ClsVoceMenu() override;
  void setIsActive(bool value) override { put(L"IsActive", value); }
  bool IsActive() override { return flag(L"IsActive"); }
  void setIsCalled(bool value) override { put(L"IsCalled", value); }
  bool IsCalled() override { return flag(L"IsCalled"); }
  void setFiltro(const Value& value) override { put(L"Filtro", value); }
  Value Filtro() override { return object_.value(L"Filtro"); }

  Value ShowForm() override { return object_.value(L"ShowForm"); }
  Value CloseForm() override { return object_.value(L"CloseForm"); }
  Value TransferData(const Value& data) override;

 private:
  void put(std::wstring_view property, const Value& value) const {
    object_.put(property, windows::toVariant(value));
  }
  bool flag(std::wstring_view property) const { return object_.flag(property); }
  std::int32_t number(std::wstring_view property) const { return object_.number(property); }
  windows::ComPtr<IDispatch> part(std::wstring_view property) const {
    return object_.get(property).object();
  }

  windows::Dispatch object_;
  IID events_;
};

/// A new instance of the plug-in that the library holds.
Ref<host::Cinterface> newPlugin(const PluginLibrary& library);

}  // namespace kebu::workbench
