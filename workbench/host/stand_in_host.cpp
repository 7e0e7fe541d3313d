#include "workbench/host/stand_in_host.h"

#include <utility>

#include "common/convert.h"

namespace kebu::workbench {

namespace {

/// The properties that the ERP sets for a user with all rights.
constexpr std::pair<const char*, const char*> usualProperties[] = {
    {"CanInsert", "on"},
    {"CanDelete", "on"},
    {"CanUpdate", "on"},
    {"CanQbe", "on"},
    {"MenuModulo", "GM"},
    {"MenuPadre", "GMKB"},
    {"MenuProg", "1"},
    {"IsActive", "on"},
    {"Caption", "Parametri collegamento con E-Commerce Merkal"},
};

}  // namespace

StandInHost::StandInHost(PluginFactory createPlugin, const HostSurroundings& surroundings)
    : createPlugin_(std::move(createPlugin)),
      surroundings_(surroundings),
      global_(makeRef<GlobalServices>(surroundings)),
      statusBar_(makeRef<HostStatusBar>()) {
  for (const auto& [name, value] : usualProperties) properties_[findHostProperty(name)] = value;
}

StandInHost::~StandInHost() {
  for (auto& [window, opened] : plugins_) release(opened);
}

void StandInHost::set(const HostProperty& property, const std::string& value) {
  if (property.check) property.check(value);
  properties_[&property] = value;
  if (plugin()) property.set(*plugin(), value);
}

void StandInHost::fill(host::Cinterface& plugin) {
  plugin.setClsGlobal(global_);
  plugin.setStatusBar(statusBar_);
  plugin.setActiveNavigator(plugins_[window_].navigator);
  const Ref<ado::Connection> own = surroundings_.database.forHost();
  own->Open();
  plugin.setConnection(own);
  for (const auto& [property, value] : properties_) property->set(plugin, value);
}

void StandInHost::open() {
  plugins_[window_].navigator = makeRef<host::Navigator>();
  plugins_[window_].plugin = createPlugin_();
  // A modal window may be closed, and the plug-in released, before ShowForm returns.
  const Ref<host::Cinterface> shown = plugin();
  fill(*shown);
  shown->ShowForm();
  // When ShowForm returns from a modal window, the window is closed already.
  if (!shown->WindowModal()) tellNavigator();
}

void StandInHost::tellNavigator() {
  const Ref<host::Navigator> navigator = plugins_[window_].navigator;
  navigator->InitializeLayoutObjectModel.raise(global_->CreateLayoutModel());
  navigator->InitializeScriptObjectModel.raise(global_->CreateScriptModel());
}

bool StandInHost::close() {
  const bool closed = toBoolean(plugin()->CloseForm());
  if (closed) release(plugins_[window_]);
  return closed;
}

void StandInHost::release(Opened& opened) {
  const Ref<host::Cinterface> leaving = std::move(opened.plugin);
  opened = {};
}

}  // namespace kebu::workbench
