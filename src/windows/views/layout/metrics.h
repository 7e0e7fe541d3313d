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

  constexpr int right() const { return left + width; }
  constexpr int bottom() const { return top + height; }
  /// The part to the right of `x`, of width 0 when `x` is beyond the right edge.
  Rect from(int x) const { return {x, top, right() > x ? right() - x : 0, height}; }
  bool isEmpty() const { return width <= 0 || height <= 0; }
  bool operator==(const Rect&) const = default;
};

/// The place moved into an area, and made smaller where the area is.
constexpr Rect fitInto(const Rect& place, const Rect& area) {
  const int width = place.width < area.width ? place.width : area.width;
  const int height = place.height < area.height ? place.height : area.height;
  const auto within = [](int wanted, int first, int last) {
    return wanted < first ? first : wanted > last ? last : wanted;
  };
  return {within(place.left, area.left, area.right() - width),
          within(place.top, area.top, area.bottom() - height), width, height};
}

/// What a scroll bar is told: the range includes both ends.
struct ScrollRange {
  int first = 0;
  int last = 0;
  int page = 0;
  int position = 0;
};

/// The resolution of the screen and the size of the font.
struct Metrics {
  int dpi = 96;
  int lineHeight = 15;
  std::function<int(const std::string&)> textWidth;

  /// Pixels of `units`, each of which is 1/96 inch.
  int px(int units) const { return (units * dpi + 48) / 96; }
  /// The reverse: 96ths of an inch of `pixels`.
  int units(int pixels) const { return (pixels * 96 + dpi / 2) / dpi; }
  int fieldHeight() const { return lineHeight + px(8); }
};

// Measures that all pages share, in 96ths of an inch.
inline constexpr int padding = 14;     ///< between a card's edge and its controls
inline constexpr int partGap = 6;      ///< between controls on a line
inline constexpr int lookupPart = 26;  ///< a look-up button with the gap before it
inline constexpr int widestField = 440;

}  // namespace kebu::windows::layout
