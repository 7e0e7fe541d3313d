#pragma once

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ado/recordset.h"
#include "common/error.h"
#include "common/value.h"

namespace kebu::tests {

/// The kind of a value and what is in it, exactly.
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

/// What somebody saw who used some objects, in words: the same use of other
/// objects must give the same story.
class Story {
 public:
  /// Does something and tells what it gave back, or its error.
  template <class Deed>
  void tell(const char* what, Deed&& deed) {
    std::string line = what;
    line += ": ";
    try {
      if constexpr (std::is_void_v<decltype(deed())>) {
        deed();
        line += "done";
      } else {
        line += describe(deed());
      }
    } catch (const RuntimeError& error) {
      line += "error " + std::to_string(error.number()) + " of " + error.source() + ", " +
              error.description();
    }
    lines_.push_back(std::move(line));
  }
  void note(std::string line) { lines_.push_back(std::move(line)); }

  const std::vector<std::string>& lines() const { return lines_; }
  bool mentions(const std::string& text) const;

 private:
  std::vector<std::string> lines_;
};

/// Says that two stories are one, or where they part. Each text of `milestones`
/// must be in them, so that an empty story or one of errors only does not pass.
void expectSameStory(const std::string& name, const Story& expected, const Story& told,
                     const std::vector<std::string>& milestones);

}  // namespace kebu::tests
