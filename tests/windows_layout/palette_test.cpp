// Whether what is drawn can be read: the contrast of every colour on what is behind it.
#include "windows/views/drawing/palette.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>

namespace kebu::windows {

namespace {

// Contrast as the Web Content Accessibility Guidelines define it.
constexpr double leastOfText = 4.5;
constexpr double leastOfMarks = 3.0;

double linear(Colour channel) {
  const double part = channel / 255.0;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(Colour colour) {
  return 0.2126 * linear(colour & 255) + 0.7152 * linear(colour >> 8 & 255) +
         0.0722 * linear(colour >> 16 & 255);
}

double contrast(Colour a, Colour b) {
  const double first = luminance(a) + 0.05;
  const double second = luminance(b) + 0.05;
  return first > second ? first / second : second / first;
}

template <std::size_t count>
void expectReadable(const Palette& colours, const DrawnPair (&pairs)[count], const char* which) {
  for (std::size_t i = 0; i < count; ++i) {
    const DrawnPair& pair = pairs[i];
    EXPECT_GE(contrast(colours.*pair.ink, colours.*pair.ground),
              pair.isMark ? leastOfMarks : leastOfText)
        << which << ", pair " << i + 1;
  }
}

TEST(Palette, MeasuresContrast) {
  EXPECT_NEAR(contrast(rgb(0, 0, 0), rgb(255, 255, 255)), 21, 0.01);
  EXPECT_NEAR(contrast(rgb(119, 119, 119), rgb(255, 255, 255)), 4.48, 0.01);
  EXPECT_EQ(contrast(rgb(1, 2, 3), rgb(1, 2, 3)), 1);
}

TEST(Palette, AllThatIsDrawnCanBeRead) {
  expectReadable(lightPalette, drawnPairs, "usual colours");
  expectReadable(lightPalette, pairsOnChosenRow, "usual colours on a chosen row");
}

// Of themes that Windows has: high contrast in black, in white and number 1, and the night sky.
TEST(Palette, TheSystemsColoursStayReadable) {
  constexpr Colour black = rgb(0, 0, 0);
  constexpr Colour white = rgb(255, 255, 255);
  const SystemColours themes[] = {
      {black, white, rgb(26, 235, 255), black, rgb(63, 242, 63)},
      {white, black, rgb(55, 0, 110), white, rgb(96, 0, 0)},
      {black, rgb(255, 255, 0), rgb(0, 128, 0), white, rgb(0, 255, 0)},
      {black, white, rgb(214, 180, 253), rgb(43, 43, 43), rgb(166, 166, 166)},
  };
  for (const SystemColours& theme : themes) {
    expectReadable(paletteOf(theme), drawnPairs, "system's colours");
  }
}

}  // namespace

}  // namespace kebu::windows
