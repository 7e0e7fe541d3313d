#include "workbench/windows/dll_plugin.h"

#include "windows/host/host_objects.h"
#include "windows/support/automation.h"
#include "workbench/windows/ado_automation.h"
#include "workbench/windows/host_automation.h"

namespace kebu::workbench {

using namespace windows;

void DllPlugin::setClsGlobal(const Ref<host::ClsGlobal>& value) {
  object_.put(L"ClsGlobal", automate(value));
}

Ref<host::ClsGlobal> DllPlugin::ClsGlobal() {
  return subjectOf<host::ClsGlobal>(part(L"ClsGlobal"));
}

void DllPlugin::setActiveNavigator(const Ref<host::Navigator>& value) {
  object_.put(L"ActiveNavigator", automate(value, events_));
}

Ref<host::Navigator> DllPlugin::ActiveNavigator() {
  return subjectOf<host::Navigator>(part(L"ActiveNavigator"));
}

void DllPlugin::setActiveDll(const Ref<host::Cinterface>& value) {
  const auto own = std::dynamic_pointer_cast<DllPlugin>(value.shared());
  object_.put(L"ActiveDll", own ? own->object_.object() : ComPtr<IDispatch>());
}

Ref<host::Cinterface> DllPlugin::ActiveDll() {
  const ComPtr<IDispatch> object = part(L"ActiveDll");
  if (!object) return nullptr;
  return makeRef<DllPlugin>(object, events_);
}

void DllPlugin::setStatusBar(const Ref<host::StatusBar>& value) {
  object_.put(L"StatusBar", automate(value));
}

Ref<host::StatusBar> DllPlugin::StatusBar() {
  return subjectOf<host::StatusBar>(part(L"StatusBar"));
}

void DllPlugin::setConnection(const Ref<ado::Connection>& value) {
  object_.put(L"Connection", automate(value));
}

Ref<ado::Connection> DllPlugin::Connection() {
  return connectionBehind(part(L"Connection"));
}

Ref<host::Cinterface> newPlugin(const PluginLibrary& library) {
  return makeRef<DllPlugin>(library.create(), library.navigatorEvents());
}

}  // namespace kebu::workbench
