#include "common/text_folding.h"

namespace kebu {

namespace {

constexpr char leadOfLatin1Letters = '\xC3';

/// The plain letters of U+00C0 to U+00FF; a blank where there is none.
constexpr std::string_view plainLetters =
    "AAAAAA CEEEEIIII"
    "DNOOOOO OUUUUY  "
    "AAAAAA CEEEEIIII"
    "DNOOOOO OUUUUY Y";

}  // namespace

std::string foldedText(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  std::string folded;
  folded.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c >= 'a' && c <= 'z') {
      folded += static_cast<char>(c - 'a' + 'A');
      continue;
    }
    const bool isLatin1 = c == leadOfLatin1Letters && i + 1 < text.size();
    const auto letter = isLatin1 ? static_cast<unsigned char>(text[i + 1]) - 0x80U : 0x40U;
    if (letter < plainLetters.size() && plainLetters[letter] != ' ') {
      folded += plainLetters[letter];
      ++i;
    } else {
      folded += c;
    }
  }
  return folded;
}

}  // namespace kebu
