#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kebu::workbench {

/// Statements that are to fail, to see how the plug-in bears it.
class StatementFaults {
 public:
  /// The next `times` statements that contain `text` fail.
  void add(const std::string& text, std::int32_t times) { faults_.push_back({text, times}); }
  /// Raises the error that is due for the statement, if one is.
  void raiseFor(const std::string& statement);

 private:
  struct Fault {
    std::string text;
    std::int32_t left;
  };

  std::vector<Fault> faults_;
};

}  // namespace kebu::workbench
