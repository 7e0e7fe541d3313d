#pragma once

#include <cstdint>

#include "controls/form.h"
#include "workbench/host/message_box.h"

namespace kebu::workbench {

class ShownList;

/// The person before the screen: everything that waits for one goes through here.
class User {
 public:
  virtual ~User() = default;

  /// The button pressed.
  virtual std::int32_t answer(const ShownMessage& box) = 0;
  /// Takes a row of the list, or leaves it.
  virtual void chooseFrom(ShownList& list) = 0;
  /// Works in a modal window until it is closed.
  virtual void workIn(controls::Form& form) = 0;
};

}  // namespace kebu::workbench
