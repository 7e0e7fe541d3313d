#pragma once

#include <map>
#include <string>
#include <string_view>

namespace kebu::workbench {

/// Translations of the Italian texts.
class Translations {
 public:
  Translations() = default;
  /// Parses lines of Italian text, tab and translation; empty lines are skipped.
  /// std::runtime_error names the first line of another form.
  static Translations parse(std::string_view text);

  /// Returns the text itself when it has no translation.
  const std::string& translate(const std::string& text) const;
  std::size_t size() const { return texts_.size(); }

 private:
  std::map<std::string, std::string> texts_;
};

}  // namespace kebu::workbench
