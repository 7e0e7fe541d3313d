#pragma once

#include <algorithm>
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
  // The room is there at once, so that no piece has to ask for it; a save joins a hundred.
  std::string text(size, '\0');
  auto end = text.begin();
  const auto append = [&](std::string_view piece) {
    end = std::copy(piece.begin(), piece.end(), end);
  };
  for (const std::string_view piece : pieces) {
    if (end != text.begin()) append(between);
    append(piece);
  }
  text.erase(end, text.end());
  return text;
}

/// The pieces with carriage return and line feed between them.
inline std::string lines(std::initializer_list<std::string_view> pieces) {
  return join(pieces, "\r\n");
}

}  // namespace kebu::sql
