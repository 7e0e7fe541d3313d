#include "workbench/host/object_models.h"

#include <utility>

namespace kebu::workbench {

namespace {

std::string entry(const std::string& name, std::int32_t kind, const std::string& description) {
  return name + ", kind " + std::to_string(kind) + ", \"" + description + "\"";
}

}  // namespace

LayoutModel::LayoutModel(RegistrationListener listener) : listener_(std::move(listener)) {}

Ref<host::NamedObject> LayoutModel::Register(const std::string& name,
                                             const Ref<host::NamedObject>& object,
                                             std::int32_t kind, const std::string& description) {
  listener_("layout: " + entry(name, kind, description));
  return object;
}

ScriptModel::ScriptModel(RegistrationListener listener, ScriptRunner runner)
    : listener_(std::move(listener)), runner_(std::move(runner)) {}

Ref<host::NamedObject> ScriptModel::Register(const std::string& name,
                                             const Ref<host::NamedObject>& object,
                                             std::int32_t kind, const std::string& description) {
  listener_("script: " + entry(name, kind, description));
  return object;
}

void ScriptModel::RunEvent(const std::string& event, bool& cancel) {
  if (runner_(event)) cancel = true;
}

}  // namespace kebu::workbench
