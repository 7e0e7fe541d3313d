#include "workbench/cli/command_line.h"

#include <algorithm>

#include "common/whole_number.h"

namespace kebu::workbench {

CommandLine::CommandLine(const std::vector<std::string>& words,
                         const std::vector<std::string>& options,
                         const std::vector<std::string>& flags) {
  for (auto word = words.begin(); word != words.end(); ++word) {
    if (word->size() < 2 || word->front() != '-') {
      operands_.push_back(*word);
      continue;
    }
    if (std::find(flags.begin(), flags.end(), *word) != flags.end()) {
      flags_.insert(*word);
      continue;
    }
    if (std::find(options.begin(), options.end(), *word) == options.end()) {
      throw CommandError("unknown option " + *word);
    }
    if (word + 1 == words.end()) throw CommandError("option " + *word + " wants a value");
    if (options_.contains(*word)) throw CommandError("option " + *word + " is given twice");
    options_[*word] = *(word + 1);
    ++word;
  }
}

std::optional<std::string> CommandLine::option(const std::string& name) const {
  const auto at = options_.find(name);
  return at == options_.end() ? std::nullopt : std::optional(at->second);
}

std::int32_t CommandLine::number(const std::string& name, std::int32_t usual) const {
  const auto text = option(name);
  if (!text) return usual;
  const auto value = wholeNumberIn(*text);
  if (!value || *value < 1) {
    throw CommandError("option " + name + " wants a number, not \"" + *text + "\"");
  }
  return *value;
}

}  // namespace kebu::workbench
