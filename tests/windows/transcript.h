#pragma once

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ado/recordset.h"
#include "common/error.h"
#include "common/value.h"

namespace kebu::tests {

/// A value's type and contents.
std::string describe(const Value& value);
std::string describe(const std::vector<RowValues>& rows);
std::string describe(const std::vector<ado::Field>& fields);
std::string describe(const ado::Errors& errors);
inline std::string describe(const std::string& text) {
  return '"' + text + '"';
}
template <class Number>
requires std::is_arithmetic_v<Number> || std::is_enum_v<Number> std::string describe(
    Number number) {
  return std::to_string(static_cast<int>(number));
}

/// What the use of some objects gave back, line by line. The same use of other objects that stand
/// for them must give the same lines.
class Transcript {
 public:
  /// Runs an action and records its result, or its error, under a name.
  template <class Action>
  void record(const char* what, Action&& action) {
    std::string line = what;
    line += ": ";
    try {
      if constexpr (std::is_void_v<decltype(action())>) {
        action();
        line += "done";
      } else {
        line += describe(action());
      }
    } catch (const RuntimeError& error) {
      line += "error " + std::to_string(error.number()) + " of " + error.source() + ", " +
              error.description();
    }
    lines_.push_back(std::move(line));
  }
  void note(std::string line) { lines_.push_back(std::move(line)); }

  const std::vector<std::string>& lines() const { return lines_; }
  /// Whether a line contains the text.
  bool contains(const std::string& text) const;

 private:
  std::vector<std::string> lines_;
};

/// Expects two transcripts to have the same lines. Each of `landmarks` must be in them, so that an
/// empty transcript, or one of errors only, does not pass.
void expectSame(const Transcript& expected, const Transcript& actual,
                const std::vector<std::string>& landmarks);

}  // namespace kebu::tests
