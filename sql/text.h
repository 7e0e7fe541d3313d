#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace kebu::sql {

/// The identifier of this platform's connector among the ERP's applications.
inline constexpr std::string_view applicationId = "14";

/// The pieces with carriage return and line feed between them.
inline std::string lines(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) {
    if (!text.empty()) text += "\r\n";
    text += piece;
  }
  return text;
}

/// The pieces one after the other.
inline std::string join(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) text += piece;
  return text;
}

}  // namespace kebu::sql
