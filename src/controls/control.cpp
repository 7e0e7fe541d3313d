#include "controls/control.h"

namespace kebu::controls {

Control::Control(std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption)) {}

void Control::translate(const Translator& translator) {
  if (!caption_.empty()) setCaption(translator(caption_));
}

ControlHost* Control::gestureHost() const {
  return gestureHost_ || !container_ ? gestureHost_ : container_->gestureHost();
}

void Control::requireReachable() const {
  if (!isShown()) throw GestureRefused(name_ + " is not visible");
  if (isCovered()) throw GestureRefused(name_ + " is behind another page");
  if (!isReachable()) throw GestureRefused(name_ + " is disabled");
}

void Control::requireChangesAccepted() const {
  requireReachable();
  if (!acceptsChanges()) throw GestureRefused(name_ + " is locked");
}

}  // namespace kebu::controls
