#include "controls/edit_box.h"

#include "common/convert.h"
#include "controls/control_host.h"
#include "controls/simple_controls.h"

namespace kebu::controls {

void EditBox::setText(const std::string& text) {
  text_ = text;
  decode();
  changed.raise();
}

void EditBox::setUnknown(bool unknown) {
  setShown(unknown_, unknown);
  if (auto* const label = description_ ? as<Label>(*description_) : nullptr) {
    label->setUnknown(unknown);
  }
}

void EditBox::decode() {
  if (text_ != decoded_) decodeAgain();
}

void EditBox::requireEditable() const {
  requireReachable();
  if (!isEditable()) throw GestureRefused(Name() + " cannot be edited");
}

void EditBox::type(const std::string& text) {
  const Gesture gesture(gestureHost());
  requireEditable();
  if (maxLength_ && characterCount(text) > maxLength_) {
    throw GestureRefused(Name() + " takes " + std::to_string(maxLength_) +
                         " characters at the most");
  }
  GotFocus.raise();
  if (text != text_) enter(text);
  LostFocus.raise();
}

void EditBox::enter(const Value& code) {
  const std::string text = trimRight(toDisplay(code));
  bool cancel = false;
  BeforeItem.raise(text, cancel);
  if (cancel || !writeToRecord(text.empty() ? Value(Null{}) : Value(text))) {
    changed.raise();  // the view shows the old text again
    return;
  }
  // Shown as the column keeps it: a number in the locale's own form.
  if (frame()) {
    refreshFromRecord();
  } else {
    setText(text);
  }
  AfterItem.raise();
}

void EditBox::lookup() {
  const Gesture gesture(gestureHost());
  requireEditable();
  if (!hasLookup()) throw GestureRefused(Name() + " has no look-up");
  StartLookup.raise(*this);
}

void EditBox::decodeAgain() {
  decoded_ = text_;
  if (!description_) return;
  std::string description;
  setUnknown(false);
  if (!text_.empty()) StartDecode.raise(text_, description);
  description_->setCaption(description);
}

}  // namespace kebu::controls
