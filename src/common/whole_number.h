#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

namespace kebu {

/// The number that the text is: digits, perhaps behind a minus. Nothing for another text and for a
/// number that does not fit.
inline std::optional<std::int32_t> wholeNumberIn(std::string_view text) {
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [at, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && at == end ? std::optional(number) : std::nullopt;
}

}  // namespace kebu
