#pragma once

#include "forms/runtime.h"
#include "windows/ado/ado_objects.h"
#include "windows/com/system_platform.h"
#include "windows/views/form/win32_desktop.h"

namespace kebu::windows {

/// The platform, database library and desktop that the instances of the class share. Windows and
/// frames that a host holds use it even after the instance that made them has ended: it lives as
/// long as any COM object of the library.
class PluginRuntime {
 public:
  /// Made on first use, by the thread that shows the windows.
  static forms::Runtime use();
  /// Ends it, when no object of the library is left.
  static void end();

 private:
  PluginRuntime();

  SystemPlatform platform_;
  AdoLibrary ado_;
  Win32Desktop desktop_;
};

}  // namespace kebu::windows
