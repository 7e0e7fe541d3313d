#include "controls/form.h"

#include <algorithm>

namespace kebu::controls {

Form::Form(std::string name, Desktop& desktop) : Control(std::move(name)), desktop_(desktop) {
  setVisible(false);
}

// A window that goes without having been closed must not stay on the screen.
Form::~Form() {
  if (loaded_) ignoringErrors([&] { desktop_.hide(*this); });
}

void Form::addTree(GroupBox& group) {
  add(group);
  for (Control* child : group.children()) {
    if (auto* inner = dynamic_cast<GroupBox*>(child)) {
      addTree(*inner);
    } else {
      add(*child);
    }
  }
  group.ChildAdded.on([this, &group](Control& child) { addLate(group, child); });
}

void Form::addLate(const GroupBox& group, Control& child) {
  // Behind the group's last control, so that the tab key finds it where it stands.
  const auto isOfGroup = [&](const Control* control) {
    while (control && control != &group) control = control->container();
    return control != nullptr;
  };
  const auto last = std::find_if(controls_.rbegin(), controls_.rend(), isOfGroup);
  controls_.insert(last.base(), &child);
  changed.raise();
}

void Form::moveTo(std::int32_t left, std::int32_t top) {
  left_ = left;
  top_ = top;
  changed.raise();
}

Control* Form::find(std::string_view name) const {
  const auto at = std::find_if(controls_.begin(), controls_.end(),
                               [&](const Control* c) { return c->isNamed(name); });
  return at == controls_.end() ? nullptr : *at;
}

std::vector<BoundControl*> Form::boundControls() const {
  std::vector<BoundControl*> bound;
  for (Control* control : controls_) {
    auto* candidate = dynamic_cast<BoundControl*>(control);
    if (candidate && candidate->frame()) bound.push_back(candidate);
  }
  return bound;
}

void Form::translate(const Translator& translator) {
  for (Control* control : controls_) control->translate(translator);
}

void Form::Show(bool modal) {
  if (!loaded_) {
    loaded_ = true;
    Form_Load();
  }
  setVisible(true);
  desktop_.show(*this);
  Form_Activate();
  if (modal) desktop_.runModal(*this);
}

bool Form::Unload() {
  if (!loaded_) return true;
  bool cancel = false;
  Form_QueryUnload(cancel);
  if (cancel) return false;
  Form_Unload();
  loaded_ = false;
  setVisible(false);
  desktop_.hide(*this);
  return true;
}

}  // namespace kebu::controls
