#include "tests/walk/gesture_source.h"

#include <utility>

#include "common/convert.h"
#include "workbench/player/scenario.h"

namespace kebu::tests {

namespace {

std::string quoted(const std::string& word) {
  // A byte order mark at the start of the text and a carriage return at the end of a line would be
  // passed over.
  constexpr const char* special = " \t\r'\"\\#\xEF";
  const bool isPlain = !word.empty() && word.find_first_of(special) == std::string::npos;
  if (isPlain) return word;
  return '"' + replaceAll(replaceAll(word, "\\", "\\\\"), "\"", "\\\"") + '"';
}

}  // namespace

std::string scenarioOf(const std::deque<WalkStep>& steps) {
  std::string text;
  for (const WalkStep& step : steps) {
    if (step.refused) continue;
    if (!step.answers.empty()) {
      text += "answer";
      for (const msgbox::Answer answer : step.answers) text += ' ' + workbench::answerName(answer);
      text += '\n';
    }
    std::string line;
    for (const std::string& word : step.words) line += (line.empty() ? "" : " ") + quoted(word);
    text += line + '\n';
  }
  return text;
}

std::deque<WalkStep> stepsOf(const std::string& scenario) {
  std::deque<WalkStep> steps;
  std::vector<msgbox::Answer> queued;
  const workbench::Scenario parsed = workbench::Scenario::parse("walk", scenario);
  for (const auto& line : parsed.lines()) {
    if (line.words.front() != "answer") {
      steps.push_back({line.words, std::exchange(queued, {})});
      continue;
    }
    for (std::size_t i = 1; i < line.words.size(); ++i) {
      if (const auto answer = workbench::answerByName(line.words[i])) queued.push_back(*answer);
    }
  }
  return steps;
}

}  // namespace kebu::tests
