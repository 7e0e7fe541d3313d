#pragma once

#include <vector>

#include "controls/desktop.h"
#include "workbench/host/user.h"

namespace kebu::workbench {

/// A screen that nobody sees: knows which windows are on it, and hands what is
/// modal to the user.
class ModelDesktop : public controls::Desktop {
 public:
  explicit ModelDesktop(User& user) : user_(user) {}

  void show(controls::Form& form) override;
  void runModal(controls::Form& form) override;
  void hide(controls::Form& form) override;
  void runLookup(controls::LookupList& list) override;
  void repaint() override {}

  /// The window in front; nothing when there is none.
  controls::Form* front() const { return forms_.empty() ? nullptr : forms_.back(); }
  bool shows(const controls::Form& form) const;

 private:
  User& user_;
  std::vector<controls::Form*> forms_;  // the one in front last
};

}  // namespace kebu::workbench
