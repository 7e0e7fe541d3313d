#include "controls/check_box.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "controls/control_host.h"

namespace kebu::controls {

void CheckBox::setTicked(bool ticked) {
  const bool clicked = ticked != ticked_;
  ticked_ = ticked;
  changed.raise();
  if (clicked) Click.raise();
}

void CheckBox::show(const Value& stored) {
  setTicked(toBoolean(CDecN(stored)));
}

void CheckBox::tick(bool on) {
  const Gesture gesture(gestureHost());
  requireChangesAccepted();
  if (on == ticked_ || !writeToRecord(static_cast<std::int16_t>(on ? 1 : 0))) return;
  setTicked(on);
  AfterChange.raise();
}

}  // namespace kebu::controls
