#pragma once

#include <cstdint>

#include "controls/form.h"
#include "workbench/host/message_box.h"

namespace kebu::workbench {

class ShownList;

/// The person at the screen. Everything that waits for a person calls this.
class User {
 public:
  virtual ~User() = default;

  /// Returns the button that is pressed.
  virtual std::int32_t answer(const ShownMessage& box) = 0;
  /// Chooses a row of the list, or none.
  virtual void chooseFrom(ShownList& list) = 0;
  /// Works in a modal window until it is closed.
  virtual void workIn(controls::Form& form) = 0;
};

}  // namespace kebu::workbench
