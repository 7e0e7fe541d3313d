#pragma once

#include "windows/support/handles.h"
#include "windows/views/window/dpi.h"

namespace kebu::windows {

/// Version 6 of the common controls, whose appearance follows the visual style. The host may use
/// another version: the manifest in our own module asks for ours, and it is active only while one
/// of our windows is made or used.
class CommonControls {
 public:
  explicit CommonControls(HINSTANCE module);
  ~CommonControls();
  CommonControls(const CommonControls&) = delete;
  CommonControls& operator=(const CommonControls&) = delete;

  /// While it lives, controls are created in our version, and windows are told the resolution of
  /// their monitor.
  class Scope {
   public:
    /// With the common controls in use, for controls that are made later than their window.
    Scope() : Scope(current_) {}
    explicit Scope(const CommonControls& controls) : Scope(&controls) {}
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    explicit Scope(const CommonControls* controls);

    DpiContext resolution_ = DpiContext::perMonitor();
    ULONG_PTR cookie_ = 0;
  };

 private:
  static const CommonControls* current_;

  Owned<HANDLE, ReleaseActCtx> context_;  ///< null where the manifest cannot be used
  OwnedModule library_;
};

}  // namespace kebu::windows
