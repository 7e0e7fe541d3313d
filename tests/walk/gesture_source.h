#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "workbench/host/message_box.h"
#include "workbench/player/step_table.h"

namespace kebu::tests {

/// A step of a walk, and how the message boxes that it raised were answered.
struct WalkStep {
  workbench::Words words;
  std::vector<msgbox::Answer> answers = {};
  bool refused = false;  ///< nobody could have made the gesture; it changed nothing
};

/// What a source of gestures knows of the moment.
struct Moment {
  controls::Form* front;                      ///< the window in front; null for none
  bool isOpen;                                ///< whether the current window of the host is open
  const std::deque<std::string>& statements;  ///< the last ones that the plug-in ran
};

/// Decides what the user of a walk does.
class GestureSource {
 public:
  virtual ~GestureSource() = default;
  /// The words of the next step; nothing at the end of the walk.
  virtual std::optional<workbench::Words> next(const Moment& moment) = 0;
  /// The button of a message box that is pressed, one that the box offers.
  virtual msgbox::Answer answer(const workbench::ShownMessage& box) = 0;
  /// The row of a list that is chosen, from 1; nothing for none.
  virtual std::optional<std::int32_t> row(std::int32_t rows) = 0;
};

/// The steps as the lines of a scenario, which plays them again.
std::string scenarioOf(const std::deque<WalkStep>& steps);
/// The reverse: the answers that a scenario queues are those of the step behind them.
std::deque<WalkStep> stepsOf(const std::string& scenario);

}  // namespace kebu::tests
