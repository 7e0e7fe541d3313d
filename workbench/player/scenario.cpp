#include "workbench/player/scenario.h"

#include <utility>

#include "common/convert.h"

namespace kebu::workbench {

namespace {

/// Splits a line into words.
class WordSplitter {
 public:
  explicit WordSplitter(std::string_view line) : line_(line) {}

  std::vector<std::string> split() {
    while (at_ < line_.size()) {
      const char c = line_[at_++];
      if (c == ' ' || c == '\t') {
        finishWord();
      } else if (c == '#' && !inWord_) {
        break;
      } else if (c == '\'') {
        takeSingleQuoted();
      } else if (c == '"') {
        takeDoubleQuoted();
      } else {
        put(c == '\\' ? escaped() : c);
      }
    }
    finishWord();
    return std::move(words_);
  }

 private:
  void put(char c) {
    inWord_ = true;
    word_ += c;
  }
  void finishWord() {
    if (inWord_) words_.push_back(std::exchange(word_, {}));
    inWord_ = false;
  }
  char escaped() {
    if (at_ == line_.size()) throw StepError("nothing follows the backslash");
    return line_[at_++];
  }
  void takeSingleQuoted() {
    inWord_ = true;
    const std::size_t end = line_.find('\'', at_);
    if (end == std::string_view::npos) throw StepError("a single quote is not closed");
    word_ += line_.substr(at_, end - at_);
    at_ = end + 1;
  }
  void takeDoubleQuoted() {
    inWord_ = true;
    while (at_ < line_.size()) {
      char c = line_[at_++];
      if (c == '"') return;
      const char next = at_ < line_.size() ? line_[at_] : '\0';
      if (c == '\\' && (next == '"' || next == '\\')) c = line_[at_++];
      word_ += c;
    }
    throw StepError("a double quote is not closed");
  }

  std::string_view line_;
  std::size_t at_ = 0;
  std::string word_;
  bool inWord_ = false;  // a quoted word may be empty
  std::vector<std::string> words_;
};

}  // namespace

std::vector<std::string> splitWords(std::string_view line) {
  return WordSplitter(line).split();
}

Scenario Scenario::parse(const std::string& name, std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());

  Scenario scenario;
  scenario.name_ = name;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    try {
      auto words = splitWords(line);
      if (!words.empty()) scenario.lines_.push_back({number, trim(line), std::move(words)});
    } catch (const StepError& error) {
      throw StepError(name + ":" + std::to_string(number) + ": " + error.what());
    }
  }
  return scenario;
}

}  // namespace kebu::workbench
