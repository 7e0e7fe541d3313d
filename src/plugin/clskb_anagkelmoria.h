#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "common/instance_trace.h"
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
  void setCanInsert(bool value) override;
  bool CanInsert() override;
  void setCanDelete(bool value) override;
  bool CanDelete() override;
  void setCanUpdate(bool value) override;
  bool CanUpdate() override;
  void setCanQbe(bool value) override;
  bool CanQbe() override;
  void setWindowState(std::int32_t value) override;
  std::int32_t WindowState() override;
  void setWindowModal(bool value) override;
  bool WindowModal() override;
  void setProgramMode(std::int32_t value) override;
  std::int32_t ProgramMode() override;
  void setMenuModulo(const Value& value) override;
  Value MenuModulo() override;
  void setMenuPadre(const Value& value) override;
  Value MenuPadre() override;
  void setMenuProg(const Value& value) override;
  Value MenuProg() override;
  void setCaption(const Value& value) override;
  Value Caption() override;
  void setHwndParent(std::int32_t value) override;
  std::int32_t hwndParent() override;
  void setConnection(const Ref<ado::Connection>& value) override;
  Ref<ado::Connection> Connection() override;
  Ref<host::NamedObject> Cwindow() override;
  void setTop(const Value& value) override;
  Value Top() override;
  void setLeft(const Value& value) override;
  Value Left() override;
  void setClsVoceMenu(const Ref<Object>& value) override;
  Ref<Object> ClsVoceMenu() override;
  void setIsActive(bool value) override;
  bool IsActive() override;
  void setIsCalled(bool value) override;
  bool IsCalled() override;
  void setFiltro(const Value& value) override;
  Value Filtro() override;

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

  bool isActive();
  void BeforeExportToOffice();
  void InitializeLayoutObjectModel(const Ref<host::LayoutModel>& model);
  void InitializeScriptObjectModel(const Ref<host::ScriptModel>& model);
  Ref<host::NamedObject> asNamedObject();
  void keepWindow(const Ref<host::NamedObject>& object);
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
};

}  // namespace kebu::plugin
