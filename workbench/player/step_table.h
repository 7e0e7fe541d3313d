#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kebu::workbench {

class Player;
using Words = std::vector<std::string>;

/// A kind of line: what stands in it, and what it does.
struct Step {
  std::string_view name;
  std::size_t least;  ///< arguments
  std::size_t most;
  std::string_view arguments;
  std::string_view help;
  void (*run)(Player& player, const Words& arguments);
};

std::span<const Step> stepTable();
/// Takes the step that the words state; StepError when they state none.
void runStep(Player& player, const Words& words);

}  // namespace kebu::workbench
