// A scenario's text: it is read or refused with the number of its line, and written words come
// back.

#include "tests/fuzz/fuzz_target.h"
#include "tests/walk/gesture_source.h"
#include "workbench/player/player.h"
#include "workbench/player/scenario.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kebu::tests;
  using namespace kebu::workbench;
  const std::string_view text = textOf(data, size);
  try {
    const Scenario scenario = Scenario::parse("x", text);
    int last = 0;
    std::deque<WalkStep> steps;
    for (const ScenarioLine& line : scenario.lines()) {
      require(line.number > last, "lines are not numbered upwards");
      require(!line.words.empty(), "a line without words");
      last = line.number;
      if (line.words.front() != "answer") steps.push_back({line.words});
    }
    const std::deque<WalkStep> again = stepsOf(scenarioOf(steps));
    require(again.size() == steps.size(), "a written scenario has other lines");
    for (std::size_t i = 0; i < steps.size(); ++i) {
      require(again[i].words == steps[i].words, "a written line has other words");
    }
  } catch (const StepError& error) {
    const std::string what = error.what();
    require(what.starts_with("x:"), "an error without its line");
    require(what.find('\n') == std::string::npos, "an error of several lines");
  }
  return 0;
}
