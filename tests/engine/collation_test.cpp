#include "workbench/engine/functions/collation.h"

#include <gtest/gtest.h>

#include <string>

#include "workbench/engine/values/characters.h"

namespace kebu::engine {
namespace {

int order(char32_t a, char32_t b) {
  return compareTexts(encoded(std::u32string(1, a)), encoded(std::u32string(1, b)));
}

/// The plain letters of code page 1252's places 0xC0 to 0xFF; blanks for its two signs.
constexpr std::u32string_view plainLetters =
    U"aaaaaaaceeeeiiiidnooooo ouuuuytsaaaaaaaceeeeiiiidnooooo ouuuuyty";

TEST(Collation, PutsEveryLetterOfTheCodePageBehindItsPlainLetter) {
  ASSERT_EQ(plainLetters.size(), 64U);
  for (char32_t i = 0; i < plainLetters.size(); ++i) {
    const char32_t letter = 0xC0 + i;
    const char32_t plain = plainLetters[i];
    if (plain == U' ') continue;
    SCOPED_TRACE(encoded(std::u32string(1, letter)));
    EXPECT_GT(order(letter, plain), 0);
    EXPECT_LT(order(letter, plain + 1), 0);
    EXPECT_EQ(order(letter, upper(letter)), 0);
  }
  for (const auto& [letter, plain] :
       {std::pair{U'Š', U's'}, {U'œ', U'o'}, {U'Ž', U'z'}, {U'Ÿ', U'y'}}) {
    EXPECT_GT(order(letter, plain), 0);
    EXPECT_EQ(order(letter, lower(letter)), 0);
  }
}

TEST(Collation, SortsSymbolsDigitsAndLettersInThisOrder) {
  for (const char32_t symbol : std::u32string(U" !#*-/:;<=>?@[]^_`{|}~€«»×÷")) {
    EXPECT_LT(order(symbol, U'0'), 0) << encoded(std::u32string(1, symbol));
  }
  EXPECT_LT(order(U'9', U'a'), 0);
  EXPECT_GT(order(U'Ω', U'z'), 0);
  EXPECT_EQ(order(U'Ω', U'ω'), 0);
  EXPECT_LT(compareTexts("cote", "côte"), 0);
  EXPECT_LT(compareTexts("côte", "coter"), 0);
  EXPECT_EQ(compareTexts("Perché  ", "PERCHÉ"), 0);
  EXPECT_LT(compareTexts("a\tb", "a b"), 0);
}

}  // namespace
}  // namespace kebu::engine
