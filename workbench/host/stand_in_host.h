#pragma once

#include <functional>
#include <map>
#include <string>

#include "host/cinterface.h"
#include "host/navigator.h"
#include "workbench/host/global_services.h"
#include "workbench/host/host_properties.h"
#include "workbench/host/host_status_bar.h"

namespace kebu::workbench {

/// Makes the plug-in, as the system's class factory would.
using PluginFactory = std::function<Ref<host::Cinterface>()>;

/// Does with the plug-in what the ERP does: creates it, fills its properties,
/// shows and closes its window, and lets it go.
class StandInHost {
 public:
  StandInHost(PluginFactory createPlugin, const HostSurroundings& surroundings);
  ~StandInHost();
  StandInHost(const StandInHost&) = delete;
  StandInHost& operator=(const StandInHost&) = delete;

  GlobalServices& services() { return *global_; }
  const HostStatusBar& statusBar() const { return *statusBar_; }

  /// For the plug-in that is there and for those to come.
  void set(const HostProperty& property, const std::string& value);
  bool isOpen() const { return static_cast<bool>(plugin_); }
  /// Nothing while no plug-in is there.
  const Ref<host::Cinterface>& plugin() const { return plugin_; }

  void open();
  /// The navigator asks for what belongs into the host's object models.
  void tellNavigator();
  /// Whether the window is gone; if so the plug-in is, too.
  bool close();

 private:
  void fill(host::Cinterface& plugin);
  void release();

  PluginFactory createPlugin_;
  HostSurroundings surroundings_;
  Ref<GlobalServices> global_;
  Ref<HostStatusBar> statusBar_;
  Ref<host::Navigator> navigator_;
  std::map<const HostProperty*, std::string> properties_;
  Ref<host::Cinterface> plugin_;
};

}  // namespace kebu::workbench
