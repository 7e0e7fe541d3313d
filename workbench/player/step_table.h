#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kebu::workbench {

class Player;
using Words = std::vector<std::string>;

/// A kind of step: its name, its arguments and its function.
struct Step {
  std::string_view name;
  std::size_t least;  ///< least number of arguments
  std::size_t most;
  std::string_view arguments;
  std::string_view help;
  void (*run)(Player& player, const Words& arguments);
};

std::span<const Step> stepTable();
/// Runs the step that the words describe. StepError for an unknown step or wrong arguments.
void runStep(Player& player, const Words& words);

}  // namespace kebu::workbench
