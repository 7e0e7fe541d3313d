#pragma once

#include "workbench/host/user.h"

namespace kebu::workbench {

/// The person before the real screen: message boxes are put before them. Lists
/// and windows are the plug-in's own and are worked in there.
class Person : public User {
 public:
  std::int32_t answer(const ShownMessage& box) override;
  void chooseFrom(ShownList& /*list*/) override {}
  void workIn(controls::Form& /*form*/) override {}
};

}  // namespace kebu::workbench
