#pragma once

#include "workbench/host/user.h"

namespace kebu::workbench {

/// The person at the screen: message boxes are shown to them. Lists and windows are the plug-in's
/// own, and the person works in those.
class Person : public User {
 public:
  std::int32_t answer(const ShownMessage& box) override;
  void chooseFrom(ShownList& /*list*/) override {}
  void workIn(controls::Form& /*form*/) override {}
};

}  // namespace kebu::workbench
