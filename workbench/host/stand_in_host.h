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

/// Creates the plug-in, as the class factory does in the ERP.
using PluginFactory = std::function<Ref<host::Cinterface>()>;

/// Treats the plug-in as the ERP does: creates it, sets its properties, shows and
/// closes its window, and releases it.
class StandInHost {
 public:
  StandInHost(PluginFactory createPlugin, const HostSurroundings& surroundings);
  ~StandInHost();
  StandInHost(const StandInHost&) = delete;
  StandInHost& operator=(const StandInHost&) = delete;

  GlobalServices& services() { return *global_; }
  const HostStatusBar& statusBar() const { return *statusBar_; }

  /// Sets the property of the current plug-in and of those that open() creates later.
  void set(const HostProperty& property, const std::string& value);
  bool isOpen() const { return static_cast<bool>(plugin_); }
  /// Null while no window is open.
  const Ref<host::Cinterface>& plugin() const { return plugin_; }

  void open();
  /// Raises the navigator's events that ask the plug-in to register its objects.
  void tellNavigator();
  /// Returns whether the window was closed. The plug-in is released then.
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
