#include "forms/page_load.h"

namespace kebu::forms {

void PageLoad::ended(bool succeeded) {
  if (succeeded && !failed_) return;
  failed_ = !succeeded;
  surroundings_.lock(failed_);
  if (failed_) {
    context_.notices.show({.cause = surroundings_.cause,
                           .text = context_.translate(surroundings_.text),
                           .action = context_.translate("Ricarica"),
                           .perform = surroundings_.reload});
  } else {
    context_.notices.remove(surroundings_.cause);
  }
  // Whether the profile may be saved depends on it.
  context_.profile.stateChanged.raise();
}

}  // namespace kebu::forms
