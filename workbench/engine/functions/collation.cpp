#include "workbench/engine/functions/collation.h"

#include <algorithm>
#include <array>
#include <compare>
#include <utility>

#include "workbench/engine/values/characters.h"

namespace kebu::engine {
namespace {

// The weights of symbols are their code points.
constexpr std::uint32_t digits = 0x10000;
constexpr std::uint32_t letters = 0x20000;
constexpr std::uint32_t others = 0x200000;

bool isSymbol(char32_t c) {
  const bool isPunctuation = c >= 0x2000 && c < 0x3000;  // dashes, quotes, currencies, arrows, …
  const bool isModifier = c >= 0x2B0 && c < 0x300;
  return c < 0xC0 || c == U'×' || c == U'÷' || isPunctuation || isModifier;
}

/// The letters of code page 1252 with an accent, in lower case, behind their plain letter.
constexpr std::array<std::pair<char, std::u32string_view>, 12> accented{{
    {'a', U"áàâäãåæª"},
    {'c', U"ç"},
    {'d', U"ð"},
    {'e', U"éèêë"},
    {'f', U"ƒ"},
    {'i', U"íìîï"},
    {'n', U"ñ"},
    {'o', U"óòôöõøœº"},
    {'s', U"šß"},
    {'t', U"þ"},
    {'u', U"úùûü"},
    {'y', U"ýÿ"},
}};
constexpr char32_t zWithCaron = U'ž';

SortWeight weightOfLower(char32_t c) {
  if (c >= U'0' && c <= U'9') return {digits + c, 0};
  if (c >= U'a' && c <= U'z') return {letters + c, 0};
  if (c < 0x80) return {c, 0};
  if (c == zWithCaron) return {letters + U'z', 1};
  for (const auto& [plain, family] : accented) {
    const std::size_t place = family.find(c);
    if (place == std::u32string_view::npos) continue;
    return {letters + static_cast<std::uint32_t>(plain), static_cast<std::uint32_t>(place + 1)};
  }
  // The letters of other alphabets come last.
  return {isSymbol(c) ? c : others + c, 0};
}

/// Weights are needed again and again, and most characters are among the first.
const std::array<SortWeight, 0x180>& commonWeights() {
  static const auto table = [] {
    std::array<SortWeight, 0x180> weights;
    for (char32_t c = 0; c < weights.size(); ++c) weights.at(c) = weightOfLower(lower(c));
    return weights;
  }();
  return table;
}

int sign(std::strong_ordering order) {
  return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0;
}

}  // namespace

SortWeight sortWeight(char32_t c) {
  const auto& common = commonWeights();
  return c < common.size() ? common[c] : weightOfLower(lower(c));
}

int compareTexts(std::string_view a, std::string_view b) {
  a = withoutTrailingBlanks(a);
  b = withoutTrailingBlanks(b);
  int accents = 0;
  while (!a.empty() && !b.empty()) {
    if (a.front() == b.front() && static_cast<unsigned char>(a.front()) < 0x80) {
      a.remove_prefix(1);
      b.remove_prefix(1);
      continue;
    }
    const SortWeight x = sortWeight(nextCharacter(a));
    const SortWeight y = sortWeight(nextCharacter(b));
    if (x.base != y.base) return x.base < y.base ? -1 : 1;
    if (accents == 0) accents = sign(x.accent <=> y.accent);
  }
  // The shorter text compares as if it were filled with blanks.
  const std::uint32_t blank = sortWeight(U' ').base;
  if (!a.empty()) return sortWeight(nextCharacter(a)).base < blank ? -1 : 1;
  if (!b.empty()) return sortWeight(nextCharacter(b)).base < blank ? 1 : -1;
  return accents;
}

}  // namespace kebu::engine
