#pragma once

#include "windows/host/dll_members.h"
#include "workbench/windows/plugin_library.h"

namespace kebu::workbench {

/// The plug-in's COM object in the role that the host calls. The host's objects are passed to it as
/// COM objects; `events` is the interface of the navigator's events.
class DllPlugin : public windows::DllMembers {
 public:
  DllPlugin(windows::ComPtr<IDispatch> object, REFIID events)
      : object_(std::move(object)), events_(events) {}

  void setClsGlobal(const Ref<host::ClsGlobal>& value) override;
  Ref<host::ClsGlobal> ClsGlobal() override;
  void setActiveNavigator(const Ref<host::Navigator>& value) override;
  Ref<host::Navigator> ActiveNavigator() override;
  void setActiveDll(const Ref<host::Cinterface>& value) override;
  Ref<host::Cinterface> ActiveDll() override;
  void setStatusBar(const Ref<host::StatusBar>& value) override;
  Ref<host::StatusBar> StatusBar() override;
  void setConnection(const Ref<ado::Connection>& value) override;
  Ref<ado::Connection> Connection() override;

 private:
  const windows::Dispatch& dll() const override { return object_; }

  windows::Dispatch object_;
  IID events_;
};

/// A new instance of the plug-in that the library holds.
Ref<host::Cinterface> newPlugin(const PluginLibrary& library);

}  // namespace kebu::workbench
