#pragma once

#include <map>

#include "forms/runtime.h"
#include "windows/ado/ado_objects.h"
#include "windows/com/system_platform.h"
#include "windows/views/form/win32_desktop.h"
#include "windows/views/window/common_controls.h"

namespace kebu::windows {

/// The platform, database library and desktop that the instances of the class share, each thread
/// with a desktop of its own. Windows and frames that a host holds use it even after the instance
/// that made them has ended: it lives as long as any COM object of the library.
class PluginRuntime {
 public:
  /// For the calling thread, which is the one that shows the windows. The caller holds a
  /// ModuleLock.
  static forms::Runtime use();
  /// Ends it, unless an object of the library is left; whether it has ended.
  static bool endWhenUnused();

 private:
  PluginRuntime();
  ~PluginRuntime();
  PluginRuntime(const PluginRuntime&) = delete;
  PluginRuntime& operator=(const PluginRuntime&) = delete;

  SystemPlatform platform_;
  AdoLibrary ado_;
  CommonControls commonControls_;
  std::map<DWORD, Win32Desktop> desktops_;  ///< by thread
};

}  // namespace kebu::windows
