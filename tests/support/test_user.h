#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "workbench/host/user.h"

namespace kebu::tests {

/// A user who acts as a test decides, and keeps the message boxes.
class TestUser : public workbench::User {
 public:
  std::int32_t answer(const workbench::ShownMessage& box) override {
    boxes.push_back(box);
    return answerTo(box);
  }
  void chooseFrom(workbench::ShownList& list) override { inList(list); }
  void workIn(controls::Form& form) override { inModalWindow(form); }

  /// The button that is pressed. By default the one that changes least.
  std::function<std::int32_t(const workbench::ShownMessage& box)> answerTo =
      [](const workbench::ShownMessage& box) { return workbench::wayOut(box.style); };
  /// By default a list is closed without a choice.
  std::function<void(workbench::ShownList& list)> inList = [](workbench::ShownList&) {};
  /// By default a modal window is left open.
  std::function<void(controls::Form& form)> inModalWindow = [](controls::Form&) {};

  std::vector<workbench::ShownMessage> boxes;
};

}  // namespace kebu::tests
