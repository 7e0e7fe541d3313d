#include "controls/control.h"

namespace kebu::controls {

Control::Control(std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption)) {}

void Control::setCaption(const std::string& caption) {
  caption_ = caption;
  changed.raise();
}

void Control::setEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  changed.raise();
}

void Control::setVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  changed.raise();
}

bool Control::isReachable() const {
  return isShown() && looksEnabled();
}

bool Control::isShown() const {
  return visible_ && (!container_ || container_->isShown());
}

bool Control::looksEnabled() const {
  return enabled_ && (!container_ || container_->looksEnabled());
}

void Control::translate(const Translator& translator) {
  if (!caption_.empty()) setCaption(translator(caption_));
}

void Control::requireReachable() const {
  if (!isShown()) throw GestureRefused(name_ + " is not visible");
  if (!isReachable()) throw GestureRefused(name_ + " is disabled");
}

}  // namespace kebu::controls
