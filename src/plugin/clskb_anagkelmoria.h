#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "common/convert.h"
#include "common/instance_trace.h"
#include "common/swallowed_errors.h"
#include "forms/anagrafica/frame/frmkb_anagrafica.h"
#include "forms/runtime.h"
#include "host/cinterface.h"

namespace kebu::plugin {

/// The one class that the host creates: holds what the host hands over, shows
/// and closes the configuration window, and answers the host's navigator.
class CLSKB_ANAGKELMORIA : public host::Cinterface,
                           public std::enable_shared_from_this<CLSKB_ANAGKELMORIA> {
 public:
  /// The runtime must outlive the instance.
  static Ref<CLSKB_ANAGKELMORIA> create(const forms::Runtime& runtime);
  ~CLSKB_ANAGKELMORIA() override;

  void setClsGlobal(const Ref<host::ClsGlobal>& value) override { host_.clsGlobal = value; }
  Ref<host::ClsGlobal> ClsGlobal() override { return host_.clsGlobal; }
  void setActiveFrame(const Ref<host::NamedObject>& value) override { host_.activeFrame = value; }
  Ref<host::NamedObject> ActiveFrame() override;
  void setActiveNavigator(const Ref<host::Navigator>& value) override;
  Ref<host::Navigator> ActiveNavigator() override { return host_.activeNavigator; }
  void setActiveDll(const Ref<host::Cinterface>& value) override;
  Ref<host::Cinterface> ActiveDll() override;
  void setStatusBar(const Ref<host::StatusBar>& value) override { host_.statusBar = value; }
  Ref<host::StatusBar> StatusBar() override { return host_.statusBar; }
  void setCanInsert(bool value) override { canInsert_ = value; }
  bool CanInsert() override { return canInsert_; }
  void setCanDelete(bool value) override { canDelete_ = value; }
  bool CanDelete() override { return canDelete_; }
  void setCanUpdate(bool value) override { canUpdate_ = value; }
  bool CanUpdate() override { return canUpdate_; }
  void setCanQbe(bool value) override { canQbe_ = value; }
  bool CanQbe() override { return canQbe_; }
  void setWindowState(std::int32_t value) override {
    ignoring("WindowState", [&] { windowState_ = toInt16(value); });
  }
  std::int32_t WindowState() override { return windowState_; }
  void setWindowModal(bool value) override { windowModal_ = value; }
  bool WindowModal() override { return windowModal_; }
  void setProgramMode(std::int32_t value) override {
    ignoring("ProgramMode", [&] { programMode_ = toInt16(value); });
  }
  std::int32_t ProgramMode() override { return programMode_; }
  void setMenuModulo(const Value& value) override { menuModulo_ = value; }
  Value MenuModulo() override { return menuModulo_; }
  void setMenuPadre(const Value& value) override { menuPadre_ = value; }
  Value MenuPadre() override { return menuPadre_; }
  void setMenuProg(const Value& value) override { menuProg_ = value; }
  Value MenuProg() override { return menuProg_; }
  void setCaption(const Value& value) override { caption_ = value; }
  Value Caption() override { return caption_; }
  void setHwndParent(std::int32_t value) override { hwndParent_ = value; }
  std::int32_t hwndParent() override { return hwndParent_; }
  void setConnection(const Ref<ado::Connection>& value) override { host_.connection = value; }
  Ref<ado::Connection> Connection() override { return host_.connection; }
  Ref<host::NamedObject> Cwindow() override { return nullptr; }
  void setTop(const Value& value) override {
    ignoring("Top", [&] { top_ = toInt32(value); });
  }
  Value Top() override { return top_; }
  void setLeft(const Value& value) override {
    ignoring("Left", [&] { left_ = toInt32(value); });
  }
  Value Left() override { return left_; }
  void setClsVoceMenu(const Ref<Object>& value) override { host_.clsVoceMenu = value; }
  Ref<Object> ClsVoceMenu() override { return host_.clsVoceMenu; }
  void setIsActive(bool value) override { isActive_ = value; }
  bool IsActive() override { return isActive_; }
  void setIsCalled(bool value) override { isCalled_ = value; }
  bool IsCalled() override { return isCalled_; }
  void setFiltro(const Value& /*value*/) override {}
  Value Filtro() override { return {}; }

  Value ShowForm() override;
  Value CloseForm() override;
  Value TransferData(const Value& data) override;

  Event<const Value&> DataTransfer;

 private:
  explicit CLSKB_ANAGKELMORIA(const forms::Runtime& runtime);
  void Class_Initialize();
  void Class_Terminate();
  void DestroyClass();
  /// A reference that does not keep this instance alive, for objects that it holds
  /// itself: a counted one would be a cycle.
  Ref<host::Cinterface> uncounted();

  bool isActive() { return host_.activeDll && host_.activeDll->IsActive(); }
  /// Nothing of the window is exported.
  void BeforeExportToOffice() {}
  void InitializeLayoutObjectModel(const Ref<host::LayoutModel>& model);
  void InitializeScriptObjectModel(const Ref<host::ScriptModel>& model);
  Ref<host::NamedObject> asNamedObject() { return Ref<host::NamedObject>(window_); }
  void keepWindow(const Ref<host::NamedObject>& object);
  /// Sets the shown window aside. It stays open, and asks its own question when it is closed.
  void keepEarlierWindow();
  /// Skips a failing statement of the member, but for a trace line.
  template <class Action>
  void ignoring(const char* member, Action&& action) {
    ignoringErrors(runtime_.platform, member, action);
  }
  template <class Action>
  void reporting(const char* place, Action&& action);

  forms::Runtime runtime_;
  InstanceTrace trace_;
  bool isActive_ = false;
  bool isCalled_ = false;
  std::int32_t top_ = 0;
  std::int32_t left_ = 0;
  bool canInsert_ = false;
  bool canDelete_ = false;
  bool canUpdate_ = false;
  bool canQbe_ = false;
  std::int16_t windowState_ = 0;
  bool windowModal_ = false;
  std::int16_t programMode_ = 0;
  Value menuModulo_;
  Value menuPadre_;
  Value menuProg_;
  Value caption_;
  std::int32_t hwndParent_ = 0;
  /// The objects that the host handed over. Assigning an empty struct releases them all.
  struct HostObjects {
    Ref<host::StatusBar> statusBar = {};
    Ref<host::NamedObject> activeFrame = {};
    Ref<host::Cinterface> activeDll = {};
    Ref<Object> clsVoceMenu = {};
    Ref<host::ClsGlobal> clsGlobal = {};
    std::vector<Subscription> navigatorEvents = {};  ///< before the navigator that raises them
    Ref<host::Navigator> activeNavigator = {};
    Ref<ado::Connection> connection = {};
  };
  HostObjects host_;
  Ref<forms::FRMKB_ANAGRAFICA> window_;
  /// The windows that earlier calls of ShowForm made, until they are closed.
  std::vector<Ref<forms::FRMKB_ANAGRAFICA>> earlierWindows_;
};

}  // namespace kebu::plugin
