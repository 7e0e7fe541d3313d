#pragma once

#include <cstdint>

#include "controls/control.h"

namespace kebu::controls {

/// Ties a window to the host's window that owns it.
class MdiContainer : public OfKind<ControlKind::MdiContainer> {
 public:
  using OfKind::OfKind;

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
