#include "tests/support/statement_recorder.h"

#include <algorithm>
#include <stdexcept>

namespace kebu::tests {

namespace {

constexpr std::size_t digitCount = 32;

}  // namespace

std::size_t StatementRecorder::countBeginningWith(const std::string& beginning) const {
  return static_cast<std::size_t>(
      std::count_if(statements_.begin(), statements_.end(),
                    [&](const std::string& text) { return text.starts_with(beginning); }));
}

std::string lastWorkingTable(const Statements& statements, const std::string& prefix) {
  const auto last =
      std::find_if(statements.rbegin(), statements.rend(),
                   [&](const std::string& text) { return text.find(prefix) != std::string::npos; });
  if (last == statements.rend()) throw std::logic_error("no table " + prefix);
  return last->substr(last->find(prefix), prefix.size() + digitCount);
}

std::string withoutWorkingTableDigits(std::string text) {
  for (const std::string prefix : {"##tempT", "##tempPrezzo", "##tempGriglia"}) {
    for (std::size_t at = 0; (at = text.find(prefix, at)) != std::string::npos;) {
      at += prefix.size();
      text.erase(at, digitCount);
    }
  }
  return text;
}

}  // namespace kebu::tests
