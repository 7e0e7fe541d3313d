#include "controls/navigator_bar.h"

#include <algorithm>
#include <iterator>

#include "common/platform.h"

namespace kebu::controls {

namespace {

bool isOffered(const std::string& key, RecordFrame& frame, const Rights& rights) {
  const FrameStatus status = frame.status();
  const bool isNew = status == FrameStatus::New;
  if (key == "Nuovo") {
    return rights.canInsert && !frame.hasRecord() && status == FrameStatus::Browsing;
  }
  if (key == "Conferma") {
    return (isNew ? rights.canInsert : rights.canUpdate) && frame.maySave() &&
           frame.hasPendingChanges();
  }
  if (key == "Annulla") return frame.hasPendingChanges();
  if (key == "Elimina") return rights.canDelete && frame.hasRecord() && !isNew;
  return false;
}

struct ButtonKey {
  std::string_view button;
  std::string_view key;
};

constexpr ButtonKey functionKeys[] = {
    {"Nuovo", "F3"},
    {"Conferma", "F10"},
    {"Annulla", "F9"},
    {"Elimina", "F8"},
};

}  // namespace

std::string_view functionKeyOf(std::string_view button) {
  const auto* const at = std::ranges::find(functionKeys, button, &ButtonKey::button);
  return at == std::end(functionKeys) ? std::string_view() : at->key;
}

NavigatorBar::NavigatorBar(std::string name, ControlHost& host,
                           const std::vector<std::string>& keys)
    : OfKind(std::move(name)), host_(host) {
  for (const std::string& key : keys) buttons_.push_back({key, key, false});
}

void NavigatorBar::bind(RecordFrame& frame) {
  frame_ = &frame;
  frame.stateChanged.on([this] { refreshButtons(); });
  refreshButtons();
}

void NavigatorBar::setModified(bool modified) {
  for (const char* key : {"Conferma", "Annulla"}) setButtonEnabled(key, modified);
}

void NavigatorBar::setRights(const Rights& rights) {
  rights_ = rights;
  refreshButtons();
}

bool NavigatorBar::isButtonEnabled(const std::string& key) const {
  return std::ranges::any_of(buttons_, [&](const auto& b) { return b.key == key && b.enabled; });
}

void NavigatorBar::setButtonEnabled(const std::string& key, bool enabled) {
  if (Button* button = buttonOf(key)) {
    button->offered = enabled;
    button->enabled = enabled && permits(key);
  }
  changed.raise();
}

bool NavigatorBar::permits(const std::string& key) const {
  if (key == "Nuovo") return rights_.canInsert;
  // Without a frame what is shown is stored already, and can only be changed.
  if (key == "Conferma") return rights_.canUpdate || (frame_ && rights_.canInsert);
  return key != "Elimina" || rights_.canDelete;
}

void NavigatorBar::setFollowsFrame(bool follows) {
  followsFrame_ = follows;
  refreshButtons();
}

void NavigatorBar::refreshButtons() {
  for (Button& button : buttons_) {
    if (frame_ && followsFrame_) button.offered = isOffered(button.key, *frame_, rights_);
    button.enabled = button.offered && permits(button.key);
  }
  changed.raise();
}

void NavigatorBar::translate(const Translator& translator) {
  for (Button& button : buttons_) button.caption = translator(button.key);
  changesCaption_ = translator(changesName);
  changed.raise();
}

void NavigatorBar::press(const std::string& name) {
  requireReachable();
  const Button* button = buttonOf(name);
  if (!button) throw GestureRefused(Name() + " has no button \"" + name + "\"");
  if (!button->enabled) throw GestureRefused("\"" + name + "\" of " + Name() + " is disabled");
  const std::string key = button->key;
  host_.work([&] {
    bool cancel = false;
    ButtonClick.raise(cancel, key);
    if (!cancel && frame_) act(key);
  });
}

void NavigatorBar::askChanges() {
  requireReachable();
  if (!showsChanges()) throw GestureRefused(Name() + " does not show changes");
  if (!isButtonEnabled(confirmButton)) {
    throw GestureRefused("\"" + std::string(confirmButton) + "\" of " + Name() + " is disabled");
  }
  host_.work([this] { ChangesAsked.raise(); });
}

NavigatorBar::Button* NavigatorBar::buttonOf(const std::string& name) {
  for (Button& button : buttons_) {
    if (button.key == name || button.caption == name) return &button;
  }
  return nullptr;
}

void NavigatorBar::act(const std::string& key) {
  if (key == "Nuovo") {
    frame_->New();
  } else if (key == "Conferma") {
    frame_->Update();
  } else if (key == "Annulla") {
    frame_->Undo();
  } else if (key == "Elimina") {
    // "No" is the default: a deletion takes everything that hangs on the record along.
    constexpr std::int32_t style = msgbox::yesNo | msgbox::question | msgbox::defaultButton2;
    std::string question = host_.translated("Eliminare il record corrente?");
    if (!frame_->deletedWith().empty()) {
      question += "\r\n" + host_.translated(frame_->deletedWith());
    }
    if (host_.message(question, style) == msgbox::yes) frame_->Delete();
  }
}

}  // namespace kebu::controls
