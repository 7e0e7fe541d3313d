#pragma once

#include "host/cinterface.h"
#include "workbench/windows/late_bound.h"

namespace kebu::workbench {

/// The plug-in as the host has it, behind the late-bound object that it is. The
/// host's objects are handed over as COM objects; `events` is the interface of
/// the navigator's events.
class DllPlugin : public host::Cinterface {
 public:
  DllPlugin(ComRef<IDispatch> object, REFIID events)
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
  void setCanInsert(bool value) override { put("CanInsert", value); }
  bool CanInsert() override { return flag("CanInsert"); }
  void setCanDelete(bool value) override { put("CanDelete", value); }
  bool CanDelete() override { return flag("CanDelete"); }
  void setCanUpdate(bool value) override { put("CanUpdate", value); }
  bool CanUpdate() override { return flag("CanUpdate"); }
  void setCanQbe(bool value) override { put("CanQbe", value); }
  bool CanQbe() override { return flag("CanQbe"); }
  void setWindowState(std::int32_t value) override { put("WindowState", value); }
  std::int32_t WindowState() override { return number("WindowState"); }
  void setWindowModal(bool value) override { put("WindowModal", value); }
  bool WindowModal() override { return flag("WindowModal"); }
  void setProgramMode(std::int32_t value) override { put("ProgramMode", value); }
  std::int32_t ProgramMode() override { return number("ProgramMode"); }
  void setMenuModulo(const Value& value) override { put("MenuModulo", value); }
  Value MenuModulo() override { return object_.value("MenuModulo"); }
  void setMenuPadre(const Value& value) override { put("MenuPadre", value); }
  Value MenuPadre() override { return object_.value("MenuPadre"); }
  void setMenuProg(const Value& value) override { put("MenuProg", value); }
  Value MenuProg() override { return object_.value("MenuProg"); }
  void setCaption(const Value& value) override { put("Caption", value); }
  Value Caption() override { return object_.value("Caption"); }
  void setHwndParent(std::int32_t value) override { put("hwndParent", value); }
  std::int32_t hwndParent() override { return number("hwndParent"); }
  void setConnection(const Ref<ado::Connection>& value) override;
  Ref<ado::Connection> Connection() override;
  Ref<host::NamedObject> Cwindow() override;
  void setTop(const Value& value) override { put("Top", value); }
  Value Top() override { return object_.value("Top"); }
  void setLeft(const Value& value) override { put("Left", value); }
  Value Left() override { return object_.value("Left"); }
  void setClsVoceMenu(const Ref<Object>& value) override;
  Ref<Object> ClsVoceMenu() override;
  void setIsActive(bool value) override { put("IsActive", value); }
  bool IsActive() override { return flag("IsActive"); }
  void setIsCalled(bool value) override { put("IsCalled", value); }
  bool IsCalled() override { return flag("IsCalled"); }
  void setFiltro(const Value& value) override { put("Filtro", value); }
  Value Filtro() override { return object_.value("Filtro"); }

  Value ShowForm() override { return toValue(object_.call("ShowForm").get()); }
  Value CloseForm() override { return toValue(object_.call("CloseForm").get()); }
  Value TransferData(const Value& data) override;

 private:
  void put(const char* property, const Value& value) const {
    object_.put(property, Variant(value));
  }
  bool flag(const char* property) const;
  std::int32_t number(const char* property) const;
  ComRef<IDispatch> part(const char* property) const { return object_.part(property).object(); }

  LateBound object_;
  IID events_;
};

}  // namespace kebu::workbench
