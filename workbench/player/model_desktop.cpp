#include "workbench/player/model_desktop.h"

#include <algorithm>

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

bool ModelDesktop::shows(const controls::Form& form) const {
  return std::find(forms_.begin(), forms_.end(), &form) != forms_.end();
}

}  // namespace kebu::workbench
