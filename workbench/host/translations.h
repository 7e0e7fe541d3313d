#pragma once

#include <map>
#include <string>
#include <string_view>

namespace kebu::workbench {

/// Texts in the user's language by their Italian original.
class Translations {
 public:
  Translations() = default;
  /// Reads lines of the Italian text, a tab and the translation; empty lines are
  /// skipped. std::runtime_error names the line that is neither.
  static Translations parse(std::string_view text);

  /// The text itself when it has no translation.
  const std::string& translate(const std::string& text) const;
  std::size_t size() const { return texts_.size(); }

 private:
  std::map<std::string, std::string> texts_;
};

}  // namespace kebu::workbench
