#pragma once

#include <cstdint>

#include "controls/control.h"

namespace kebu::controls {

/// Ties a window to the host's window that owns it.
class MdiContainer : public Control {
 public:
  using Control::Control;

  static bool includes(ControlKind kind) { return kind == ControlKind::MdiContainer; }
  ControlKind kind() const override { return ControlKind::MdiContainer; }

  /// Takes the handle of the host's window that owns this window; 0 for none.
  void attach(std::int32_t parentWindow) {
    parentWindow_ = parentWindow;
    changed.raise();
  }
  std::int32_t parentWindow() const { return parentWindow_; }

  /// The window is attached.
  Event<> FormLoad;

 private:
  std::int32_t parentWindow_ = 0;
};

}  // namespace kebu::controls
