#pragma once

#include <cstdint>

#include "controls/control.h"

namespace kebu::controls {

class Form;

/// Ties a window to the host's window that holds it.
class MdiContainer : public Control {
 public:
  using Control::Control;

  static bool includes(ControlKind kind) { return kind == ControlKind::MdiContainer; }
  ControlKind kind() const override { return ControlKind::MdiContainer; }

  /// The host's window for `form` to stand in; 0 for none.
  void attach(Form& form, std::int32_t parentWindow) {
    form_ = &form;
    parentWindow_ = parentWindow;
    changed.raise();
  }
  Form* form() const { return form_; }
  std::int32_t parentWindow() const { return parentWindow_; }

  /// The container is there.
  Event<> FormLoad;

 private:
  Form* form_ = nullptr;
  std::int32_t parentWindow_ = 0;
};

}  // namespace kebu::controls
