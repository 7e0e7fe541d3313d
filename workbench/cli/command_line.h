#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace kebu::workbench {

/// A wrong command line, or a reason why a command cannot run. One line for the user.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The arguments of a command: options with their values, and operands.
class CommandLine {
 public:
  /// `options` are the options of the command that take a value, `flags` those that take none.
  /// CommandError for others.
  CommandLine(const std::vector<std::string>& words, const std::vector<std::string>& options,
              const std::vector<std::string>& flags = {});

  bool has(const std::string& flag) const { return flags_.contains(flag); }
  std::optional<std::string> option(const std::string& name) const;
  /// The option as a positive number, or `usual` without the option. CommandError for another
  /// text.
  std::int32_t number(const std::string& name, std::int32_t usual) const;
  const std::vector<std::string>& operands() const { return operands_; }

 private:
  std::map<std::string, std::string> options_;
  std::set<std::string> flags_;
  std::vector<std::string> operands_;
};

}  // namespace kebu::workbench
