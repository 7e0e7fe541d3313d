#pragma once

#include <vector>

#include "controls/desktop.h"
#include "controls/lookup_list.h"
#include "workbench/host/shown_list.h"
#include "workbench/host/user.h"

namespace kebu::workbench {

/// A look-up list without a screen.
class ModelList : public ShownList {
 public:
  explicit ModelList(controls::LookupList& list) : list_(list) {}
  std::string title() override { return list_.title(); }
  std::vector<std::string> captions() override { return list_.captions(); }
  std::int32_t rowCount() override { return list_.rowCount(); }
  std::string cellText(std::int32_t row, std::size_t column) override {
    return list_.cellText(row, column);
  }
  void choose(std::int32_t row) override { list_.choose(row); }

 private:
  controls::LookupList& list_;
};

/// A desktop without a screen. Keeps the order of the shown windows; modal windows
/// and look-up lists are passed to the user.
class ModelDesktop : public controls::Desktop {
 public:
  explicit ModelDesktop(User& user) : user_(user) {}

  void show(controls::Form& form, const std::function<void()>& setUp) override;
  void runModal(controls::Form& form) override;
  void hide(controls::Form& form) override;
  void runLookup(controls::LookupList& list) override;
  void repaint() override;
  void beginWork() override;

  /// Another window of the user's comes to the front.
  void activate(controls::Form& form);
  /// The window in front; null when none is shown.
  controls::Form* front() const { return forms_.empty() ? nullptr : forms_.back(); }
  bool shows(const controls::Form& form) const;
  /// The user interrupts the work that is going on, if it offers that.
  void interruptSoon() { interrupts_ = true; }
  /// How many works there have been.
  int works() const { return works_; }

 private:
  User& user_;
  int works_ = 0;
  bool interrupts_ = false;
  std::vector<controls::Form*> forms_;  // the front window is the last
};

}  // namespace kebu::workbench
