#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace kebu::sql {

/// The identifier of this platform's connector among the ERP's applications.
inline constexpr std::string_view applicationId = "14";

/// The pieces one after the other, with `between` between them.
inline std::string join(std::initializer_list<std::string_view> pieces,
                        std::string_view between = "") {
  std::string text;
  bool isFirst = true;
  for (const std::string_view piece : pieces) {
    if (!isFirst) text += between;
    text += piece;
    isFirst = false;
  }
  return text;
}

/// The pieces with carriage return and line feed between them.
inline std::string lines(std::initializer_list<std::string_view> pieces) {
  return join(pieces, "\r\n");
}

}  // namespace kebu::sql
