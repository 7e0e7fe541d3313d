#pragma once

#include <cstdint>
#include <string_view>

namespace kebu::engine {

/// Where a character sorts. Characters with the same `base` differ in their accents only.
struct SortWeight {
  std::uint32_t base = 0;
  std::uint32_t accent = 0;

  friend auto operator<=>(const SortWeight&, const SortWeight&) = default;
};

/// As the collation Latin1_General_CI_AS has it: symbols, digits, letters. Case makes no
/// difference, an accented letter follows its plain letter.
SortWeight sortWeight(char32_t c);

/// Negative, 0 or positive, as texts sort under the same collation. Blanks at the end do not
/// count. Accents decide only between texts that are equal without them.
int compareTexts(std::string_view a, std::string_view b);

}  // namespace kebu::engine
