#include "workbench/engine/values/characters.h"

#include <algorithm>

namespace kebu::engine {
namespace {

constexpr char32_t broken = 0xFFFD;

void append(std::string& utf8, char32_t c) {
  if (c < 0x80) {
    utf8 += static_cast<char>(c);
    return;
  }
  const int following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
  const char32_t lead = 0xFF80U >> following & 0xFF;  // begins with a bit for every byte
  utf8 += static_cast<char>(lead | c >> (6 * following));
  for (int i = following - 1; i >= 0; --i) {
    utf8 += static_cast<char>(0x80 | (c >> (6 * i) & 0x3F));
  }
}

}  // namespace

char32_t nextCharacter(std::string_view& utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  utf8.remove_prefix(1);
  if (lead < 0x80) return lead;
  const int following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  if (following == 0) return broken;
  char32_t character = lead & (0x3FU >> following);
  for (int i = 0; i < following; ++i) {
    if (utf8.empty() || (utf8.front() & 0xC0) != 0x80) return broken;
    character = character << 6 | (static_cast<unsigned char>(utf8.front()) & 0x3FU);
    utf8.remove_prefix(1);
  }
  return character;
}

char32_t lower(char32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3A9) ||
      (c >= 0x410 && c <= 0x42F))
    return c + 32;
  if (c >= 0x400 && c <= 0x40F) return c + 80;
  const bool evenIsUpper = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
  const bool oddIsUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  if ((evenIsUpper && c % 2 == 0) || (oddIsUpper && c % 2 == 1)) return c + 1;
  return c == 0x178 ? 0xFF : c;
}

char32_t upper(char32_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
  if (c == 0xFF) return 0x178;
  for (const char32_t candidate : {c - 32, c - 80, c - 1}) {
    if (lower(candidate) == c) return candidate;
  }
  return c;
}

std::u32string decoded(std::string_view utf8) {
  std::u32string characters;
  characters.reserve(utf8.size());
  while (!utf8.empty()) characters += nextCharacter(utf8);
  return characters;
}

std::string encoded(std::u32string_view characters) {
  std::string utf8;
  utf8.reserve(characters.size());
  for (const char32_t c : characters) append(utf8, c);
  return utf8;
}

std::u32string lowered(std::string_view utf8) {
  std::u32string characters = decoded(utf8);
  std::transform(characters.begin(), characters.end(), characters.begin(), lower);
  return characters;
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace kebu::engine
