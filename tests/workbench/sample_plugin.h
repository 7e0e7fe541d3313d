#pragma once

#include <memory>
#include <string>

#include "common/convert.h"
#include "host/cinterface.h"
#include "tests/workbench/sample_form.h"

namespace kebu::workbench {

/// A plug-in with a sample window. It keeps only those properties that the tests
/// read.
class SamplePlugin : public host::Cinterface {
 public:
  explicit SamplePlugin(controls::Desktop& desktop) : form(std::make_shared<SampleForm>(desktop)) {}

  Value ShowForm() override {
    form->Show(modal_);
    return {};
  }
  Value CloseForm() override { return form->Unload(); }
  Value TransferData(const Value& /*data*/) override { return {}; }

  void setClsGlobal(const Ref<host::ClsGlobal>& value) override { global_ = value; }
  Ref<host::ClsGlobal> ClsGlobal() override { return global_; }
  void setWindowModal(bool value) override { modal_ = value; }
  bool WindowModal() override { return modal_; }
  void setCaption(const Value& value) override { form->setCaption(toDisplay(value)); }
  Value Caption() override { return form->caption(); }

  void setActiveFrame(const Ref<host::NamedObject>&) override {}
  Ref<host::NamedObject> ActiveFrame() override { return nullptr; }
  void setActiveNavigator(const Ref<host::Navigator>&) override {}
  Ref<host::Navigator> ActiveNavigator() override { return nullptr; }
  void setActiveDll(const Ref<Cinterface>&) override {}
  Ref<Cinterface> ActiveDll() override { return nullptr; }
  void setStatusBar(const Ref<host::StatusBar>&) override {}
  Ref<host::StatusBar> StatusBar() override { return nullptr; }
  void setCanInsert(bool) override {}
  bool CanInsert() override { return false; }
  void setCanDelete(bool) override {}
  bool CanDelete() override { return false; }
  void setCanUpdate(bool) override {}
  bool CanUpdate() override { return false; }
  void setCanQbe(bool) override {}
  bool CanQbe() override { return false; }
  void setWindowState(std::int32_t) override {}
  std::int32_t WindowState() override { return 0; }
  void setProgramMode(std::int32_t) override {}
  std::int32_t ProgramMode() override { return 0; }
  void setMenuModulo(const Value&) override {}
  Value MenuModulo() override { return {}; }
  void setMenuPadre(const Value&) override {}
  Value MenuPadre() override { return {}; }
  void setMenuProg(const Value&) override {}
  Value MenuProg() override { return {}; }
  void setHwndParent(std::int32_t) override {}
  std::int32_t hwndParent() override { return 0; }
  void setConnection(const Ref<ado::Connection>&) override {}
  Ref<ado::Connection> Connection() override { return nullptr; }
  Ref<host::NamedObject> Cwindow() override { return nullptr; }
  void setTop(const Value&) override {}
  Value Top() override { return {}; }
  void setLeft(const Value&) override {}
  Value Left() override { return {}; }
  void setClsVoceMenu(const Ref<Object>&) override {}
  Ref<Object> ClsVoceMenu() override { return nullptr; }
  void setIsActive(bool) override {}
  bool IsActive() override { return false; }
  void setIsCalled(bool) override {}
  bool IsCalled() override { return false; }
  void setFiltro(const Value&) override {}
  Value Filtro() override { return {}; }

  std::shared_ptr<SampleForm> form;

 private:
  Ref<host::ClsGlobal> global_;
  bool modal_ = false;
};

}  // namespace kebu::workbench
