#pragma once

#include <functional>
#include <string>

namespace kebu::windows::layout {

/// In pixels of the screen.
struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  int right() const { return left + width; }
  int bottom() const { return top + height; }
  bool isEmpty() const { return width <= 0 || height <= 0; }
  bool operator==(const Rect&) const = default;
};

/// The resolution of the screen and the size of the font.
struct Metrics {
  int dpi = 96;
  int lineHeight = 15;
  std::function<int(const std::string&)> textWidth;

  /// Pixels of `units`, each of which is 1/96 inch.
  int px(int units) const { return (units * dpi + 48) / 96; }
  /// The other way round: 96ths of an inch in so many pixels.
  int units(int pixels) const { return (pixels * 96 + dpi / 2) / dpi; }
  int fieldHeight() const { return lineHeight + px(8); }
};

// Measures that all pages share, in 96ths of an inch.
inline constexpr int padding = 14;     ///< between a card's edge and what is in it
inline constexpr int partGap = 6;      ///< between the parts of a line
inline constexpr int lookupPart = 26;  ///< a look-up button with the gap before it
inline constexpr int widestField = 440;

}  // namespace kebu::windows::layout
