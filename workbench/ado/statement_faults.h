#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kebu::workbench {

/// Planned faults: statements that fail on purpose, to test how the plug-in reacts.
class StatementFaults {
 public:
  /// The next `times` statements that contain `text` fail.
  void add(const std::string& text, std::int32_t times) { faults_.push_back({text, times}); }
  /// Throws the error that is planned for the statement, if any.
  void raiseFor(const std::string& statement);

 private:
  struct Fault {
    std::string text;
    std::int32_t left;
  };

  std::vector<Fault> faults_;
};

}  // namespace kebu::workbench
