#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kebu::workbench {

/// What is wrong with the command line, or keeps a command from being done.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The words of a command: its options with their values, and the rest.
class CommandLine {
 public:
  /// `options` are those that the command has; each takes a value.
  CommandLine(const std::vector<std::string>& words, const std::vector<std::string>& options);

  std::optional<std::string> option(const std::string& name) const;
  /// A positive number.
  std::int32_t number(const std::string& name, std::int32_t usual) const;
  const std::vector<std::string>& operands() const { return operands_; }

 private:
  std::map<std::string, std::string> options_;
  std::vector<std::string> operands_;
};

}  // namespace kebu::workbench
