#pragma once

#include <windows.h>

namespace kebu::windows {

/// Version 6 of the common controls, whose looks follow the visual style. The
/// host may use another version: ours is asked for by the manifest in our own
/// module, and only while one of our windows is at work.
class CommonControls {
 public:
  explicit CommonControls(HINSTANCE module);
  ~CommonControls();
  CommonControls(const CommonControls&) = delete;
  CommonControls& operator=(const CommonControls&) = delete;

  /// While it lives, controls are created in our version, and windows at the
  /// resolution of the monitor they stand on.
  class Scope {
   public:
    /// Of the controls that are in use, for what is made long after its window.
    Scope() : Scope(current_) {}
    explicit Scope(const CommonControls& controls) : Scope(&controls) {}
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    explicit Scope(const CommonControls* controls);

    ULONG_PTR cookie_ = 0;
    DPI_AWARENESS_CONTEXT before_;
  };

 private:
  static const CommonControls* current_;

  HANDLE context_;
  HMODULE library_ = nullptr;
};

}  // namespace kebu::windows
