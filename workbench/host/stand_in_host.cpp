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
  release();
}

void StandInHost::set(const HostProperty& property, const std::string& value) {
  properties_[&property] = value;
  if (plugin_) property.set(*plugin_, value);
}

void StandInHost::fill(host::Cinterface& plugin) {
  plugin.setClsGlobal(global_);
  plugin.setStatusBar(statusBar_);
  plugin.setActiveNavigator(navigator_);
  const Ref<ado::Connection> own = surroundings_.database.forHost();
  own->Open();
  plugin.setConnection(own);
  for (const auto& [property, value] : properties_) property->set(plugin, value);
}

void StandInHost::open() {
  navigator_ = makeRef<host::Navigator>();
  plugin_ = createPlugin_();
  // A modal window may be closed, and plugin_ released, before ShowForm returns.
  const Ref<host::Cinterface> shown = plugin_;
  fill(*shown);
  shown->ShowForm();
  // When ShowForm returns from a modal window, the window is closed already.
  if (!shown->WindowModal()) tellNavigator();
}

void StandInHost::tellNavigator() {
  navigator_->InitializeLayoutObjectModel.raise(global_->CreateLayoutModel());
  navigator_->InitializeScriptObjectModel.raise(global_->CreateScriptModel());
}

bool StandInHost::close() {
  const bool closed = toBoolean(plugin_->CloseForm());
  if (closed) release();
  return closed;
}

void StandInHost::release() {
  if (!plugin_) return;
  const Ref<host::Cinterface> leaving = std::move(plugin_);
  plugin_.reset();
  navigator_.reset();
}

}  // namespace kebu::workbench
