#pragma once

#include <cstdint>
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
/// closes its window, and releases it. It may have several windows open, as several users
/// of a company have.
class StandInHost {
 public:
  StandInHost(PluginFactory createPlugin, const HostSurroundings& surroundings);
  ~StandInHost();
  StandInHost(const StandInHost&) = delete;
  StandInHost& operator=(const StandInHost&) = delete;

  GlobalServices& services() { return *global_; }
  const HostStatusBar& statusBar() const { return *statusBar_; }

  /// The window that the following calls are about, counted from 1. The first one without it.
  void use(std::int32_t window) { window_ = window; }
  std::int32_t window() const { return window_; }

  /// Sets the property of the current plug-in and of those that open() creates later. RuntimeError
  /// when the property does not take the value.
  void set(const HostProperty& property, const std::string& value);
  bool isOpen() const { return static_cast<bool>(plugin()); }
  /// Null while the window is not open.
  const Ref<host::Cinterface>& plugin() const { return plugins_[window_].plugin; }

  void open();
  /// Raises the navigator's events that ask the plug-in to register its objects.
  void tellNavigator();
  /// Returns whether the window was closed. The plug-in is released then.
  bool close();

 private:
  struct Opened {
    Ref<host::Navigator> navigator;
    Ref<host::Cinterface> plugin;
  };

  void fill(host::Cinterface& plugin);
  static void release(Opened& opened);

  PluginFactory createPlugin_;
  HostSurroundings surroundings_;
  Ref<GlobalServices> global_;
  Ref<HostStatusBar> statusBar_;
  std::map<const HostProperty*, std::string> properties_;
  std::int32_t window_ = 1;
  mutable std::map<std::int32_t, Opened> plugins_;  ///< by window
};

}  // namespace kebu::workbench
