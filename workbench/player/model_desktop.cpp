#include "workbench/player/model_desktop.h"

#include <algorithm>
#include <utility>

#include "controls/form.h"
#include "controls/simple_controls.h"

namespace kebu::workbench {

void ModelDesktop::show(controls::Form& form, const std::function<void()>& setUp) {
  hide(form);
  forms_.push_back(&form);
  setUp();
}

void ModelDesktop::activate(controls::Form& form) {
  show(form, [&form] { form.activate(); });
}

void ModelDesktop::runModal(controls::Form& form) {
  user_.workIn(form);
}

void ModelDesktop::hide(controls::Form& form) {
  std::erase(forms_, &form);
}

void ModelDesktop::runLookup(controls::LookupList& list) {
  ModelList shown(list);
  user_.chooseFrom(shown);
}

void ModelDesktop::repaint() {
  if (!std::exchange(interrupts_, false) || !front()) return;
  for (controls::Control* control : front()->controls()) {
    auto* const bar = controls::as<controls::ProgressBar>(*control);
    if (bar && bar->isInterruptible()) bar->interrupt();
  }
}

void ModelDesktop::beginWork() {
  ++works_;
  interrupts_ = false;
}

bool ModelDesktop::shows(const controls::Form& form) const {
  return std::find(forms_.begin(), forms_.end(), &form) != forms_.end();
}

}  // namespace kebu::workbench
