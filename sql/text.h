#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kebu::sql {

/// The identifier of this platform's connector among the ERP's applications.
inline constexpr std::string_view applicationId = "14";

/// The pieces one after the other.
inline std::string join(std::initializer_list<std::string_view> pieces,
                        std::string_view between = "") {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size() + between.size();
  std::string text;
  text.reserve(size);
  for (const std::string_view piece : pieces) {
    if (!text.empty()) text += between;
    text += piece;
  }
  return text;
}

/// The pieces with carriage return and line feed between them.
inline std::string lines(std::initializer_list<std::string_view> pieces) {
  return join(pieces, "\r\n");
}

}  // namespace kebu::sql
