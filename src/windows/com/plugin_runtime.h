#pragma once

#include "forms/runtime.h"
#include "windows/ado/ado_objects.h"
#include "windows/com/system_platform.h"
#include "windows/views/form/win32_desktop.h"

namespace kebu::windows {

/// What the instances of the class run on. Windows and frames that a host holds
/// turn to it even when the instance that made them is gone: it lives as long
/// as any COM object of the library.
class PluginRuntime {
 public:
  /// Made on first use, by the thread that shows the windows.
  static forms::Runtime use();
  /// Nothing of the library is in use any more.
  static void end();

 private:
  PluginRuntime();

  SystemPlatform platform_;
  AdoLibrary ado_;
  Win32Desktop desktop_;
};

}  // namespace kebu::windows
