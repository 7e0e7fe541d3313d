#pragma once

#include <string>
#include <string_view>

namespace kebu::engine {

// Characters of UTF-8 texts.

/// Takes the first character off a text that is not empty; U+FFFD for broken UTF-8.
char32_t nextCharacter(std::string_view& utf8);
std::u32string decoded(std::string_view utf8);
std::string encoded(std::u32string_view characters);
/// Of Latin, Greek and Cyrillic letters; other characters stay.
char32_t lower(char32_t c);
char32_t upper(char32_t c);
std::u32string lowered(std::string_view utf8);
std::string_view withoutTrailingBlanks(std::string_view text);

}  // namespace kebu::engine
