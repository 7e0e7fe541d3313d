#pragma once

#include "host/cinterface.h"
#include "windows/host/host_objects.h"
#include "windows/support/dispatch.h"
#include "windows/support/values.h"

namespace kebu::windows {

/// A plug-in behind a late-bound object: the members of the contract that the DLL and the workbench
/// translate in the same way. The properties that hold the host's objects are left to each side.
class DllMembers : public host::Cinterface {
 public:
  void setActiveFrame(const Ref<host::NamedObject>& given) override {
    dll().put(L"ActiveFrame", unwrap(given));
  }
  Ref<host::NamedObject> ActiveFrame() override {
    return wrapNamedObject(part(L"ActiveFrame").get());
  }
  void setCanInsert(bool given) override { put(L"CanInsert", given); }
  bool CanInsert() override { return dll().flag(L"CanInsert"); }
  void setCanDelete(bool given) override { put(L"CanDelete", given); }
  bool CanDelete() override { return dll().flag(L"CanDelete"); }
  void setCanUpdate(bool given) override { put(L"CanUpdate", given); }
  bool CanUpdate() override { return dll().flag(L"CanUpdate"); }
  void setCanQbe(bool given) override { put(L"CanQbe", given); }
  bool CanQbe() override { return dll().flag(L"CanQbe"); }
  void setWindowState(std::int32_t given) override { put(L"WindowState", given); }
  std::int32_t WindowState() override { return dll().number(L"WindowState"); }
  void setWindowModal(bool given) override { put(L"WindowModal", given); }
  bool WindowModal() override { return dll().flag(L"WindowModal"); }
  void setProgramMode(std::int32_t given) override { put(L"ProgramMode", given); }
  std::int32_t ProgramMode() override { return dll().number(L"ProgramMode"); }
  void setMenuModulo(const Value& given) override { put(L"MenuModulo", given); }
  Value MenuModulo() override { return dll().value(L"MenuModulo"); }
  void setMenuPadre(const Value& given) override { put(L"MenuPadre", given); }
  Value MenuPadre() override { return dll().value(L"MenuPadre"); }
  void setMenuProg(const Value& given) override { put(L"MenuProg", given); }
  Value MenuProg() override { return dll().value(L"MenuProg"); }
  void setCaption(const Value& given) override { put(L"Caption", given); }
  Value Caption() override { return dll().value(L"Caption"); }
  void setHwndParent(std::int32_t given) override { put(L"hwndParent", given); }
  std::int32_t hwndParent() override { return dll().number(L"hwndParent"); }
  Ref<host::NamedObject> Cwindow() override { return wrapNamedObject(part(L"Cwindow").get()); }
  void setTop(const Value& given) override { put(L"Top", given); }
  Value Top() override { return dll().value(L"Top"); }
  void setLeft(const Value& given) override { put(L"Left", given); }
  Value Left() override { return dll().value(L"Left"); }
  void setClsVoceMenu(const Ref<Object>& given) override {
    dll().put(L"ClsVoceMenu", unwrap(given));
  }
  Ref<Object> ClsVoceMenu() override { return wrapObject(part(L"ClsVoceMenu").get()); }
  void setIsActive(bool given) override { put(L"IsActive", given); }
  bool IsActive() override { return dll().flag(L"IsActive"); }
  void setIsCalled(bool given) override { put(L"IsCalled", given); }
  bool IsCalled() override { return dll().flag(L"IsCalled"); }
  void setFiltro(const Value& given) override { put(L"Filtro", given); }
  Value Filtro() override { return dll().value(L"Filtro"); }

  Value ShowForm() override { return dll().value(L"ShowForm"); }
  Value CloseForm() override { return dll().value(L"CloseForm"); }
  Value TransferData(const Value& data) override {
    return dll().value(L"TransferData", {toVariant(data)});
  }

 protected:
  virtual const Dispatch& dll() const = 0;
  ComPtr<IDispatch> part(std::wstring_view property) const { return dll().get(property).object(); }

 private:
  void put(std::wstring_view property, const Value& given) const {
    dll().put(property, toVariant(given));
  }
};

}  // namespace kebu::windows
