#include "workbench/windows/dll_plugin.h"

#include "common/convert.h"
#include "host/navigator.h"
#include "workbench/windows/ado_automation.h"
#include "workbench/windows/automation.h"
#include "workbench/windows/host_automation.h"

namespace kebu::workbench {

namespace {

/// An object of which only is known that it is there.
class OpaqueObject : public Object {
 public:
  explicit OpaqueObject(ComRef<IDispatch> object) : object_(std::move(object)) {}

 private:
  ComRef<IDispatch> object_;
};

}  // namespace

bool DllPlugin::flag(const char* property) const {
  return toBoolean(object_.value(property));
}

std::int32_t DllPlugin::number(const char* property) const {
  return toInt32(object_.value(property));
}

void DllPlugin::setClsGlobal(const Ref<host::ClsGlobal>& value) {
  object_.set("ClsGlobal", automate(value));
}

Ref<host::ClsGlobal> DllPlugin::ClsGlobal() {
  return subjectOf<host::ClsGlobal>(part("ClsGlobal"));
}

void DllPlugin::setActiveFrame(const Ref<host::NamedObject>& value) {
  object_.set("ActiveFrame", ForeignObject::behind(value));
}

Ref<host::NamedObject> DllPlugin::ActiveFrame() {
  return ForeignObject::of(part("ActiveFrame"));
}

void DllPlugin::setActiveNavigator(const Ref<host::Navigator>& value) {
  object_.set("ActiveNavigator", automate(value, events_));
}

Ref<host::Navigator> DllPlugin::ActiveNavigator() {
  return subjectOf<host::Navigator>(part("ActiveNavigator"));
}

void DllPlugin::setActiveDll(const Ref<host::Cinterface>& value) {
  const auto own = std::dynamic_pointer_cast<DllPlugin>(value.shared());
  object_.set("ActiveDll", own ? own->object_.object() : nullptr);
}

Ref<host::Cinterface> DllPlugin::ActiveDll() {
  const ComRef<IDispatch> object = part("ActiveDll");
  if (!object) return nullptr;
  return makeRef<DllPlugin>(object, events_);
}

void DllPlugin::setStatusBar(const Ref<host::StatusBar>& value) {
  object_.set("StatusBar", automate(value));
}

Ref<host::StatusBar> DllPlugin::StatusBar() {
  return subjectOf<host::StatusBar>(part("StatusBar"));
}

void DllPlugin::setConnection(const Ref<ado::Connection>& value) {
  object_.set("Connection", automate(value));
}

Ref<ado::Connection> DllPlugin::Connection() {
  return connectionBehind(part("Connection"));
}

Ref<host::NamedObject> DllPlugin::Cwindow() {
  return ForeignObject::of(part("Cwindow"));
}

void DllPlugin::setClsVoceMenu(const Ref<Object>& /*value*/) {
  object_.set("ClsVoceMenu", nullptr);  // the workbench has no menu entries to hand over
}

Ref<Object> DllPlugin::ClsVoceMenu() {
  const ComRef<IDispatch> object = part("ClsVoceMenu");
  if (!object) return nullptr;
  return makeRef<OpaqueObject>(object);
}

Value DllPlugin::TransferData(const Value& data) {
  return toValue(object_.call("TransferData", {Variant(data)}).get());
}

}  // namespace kebu::workbench
