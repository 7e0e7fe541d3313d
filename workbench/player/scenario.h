#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kebu::workbench {

/// A step that cannot be played. The text is one line.
class StepError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct ScenarioLine {
  int number = 0;
  std::string text;
  std::vector<std::string> words;
};

/// Splits a line into words as a shell does: single quotes keep everything,
/// within double quotes a backslash escapes '"' and '\', elsewhere any character;
/// '#' at a word's beginning starts a comment. StepError for an open quote.
std::vector<std::string> splitWords(std::string_view line);

/// The lines of a scenario that contain a step.
class Scenario {
 public:
  /// StepError names a line that cannot be split.
  static Scenario parse(const std::string& name, std::string_view text);

  const std::string& name() const { return name_; }
  const std::vector<ScenarioLine>& lines() const { return lines_; }

 private:
  std::string name_;
  std::vector<ScenarioLine> lines_;
};

}  // namespace kebu::workbench
