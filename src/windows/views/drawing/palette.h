#pragma once

#include <cstdint>

namespace kebu::windows {

/// A colour as Windows has it: red in the lowest byte, then green and blue.
using Colour = std::uint32_t;

constexpr Colour rgb(Colour red, Colour green, Colour blue) {
  return red | green << 8 | blue << 16;
}

/// The colours of a window.
struct Palette {
  Colour window;  ///< behind everything
  Colour card;    ///< behind a group of controls
  Colour border;  ///< of cards, grids and buttons
  Colour edge;    ///< of what can be typed into
  Colour line;    ///< between rows
  Colour text;
  Colour muted;  ///< captions, descriptions
  Colour faint;  ///< what cannot be used now
  Colour accent;
  Colour accentText;  ///< on the accent
  Colour chosen;      ///< behind a chosen row or link
  Colour chosenText;  ///< of a chosen link
  Colour hover;       ///< behind what the pointer is on
  Colour locked;      ///< behind what cannot be edited, and behind the heads of a grid
  Colour good;        ///< the mark of a row that is in order
  Colour warning;     ///< of warnings, and the mark of a row that is incomplete
  bool isSystems;     ///< whether the colours are the system's own
};

/// The usual colours.
inline constexpr Palette lightPalette{
    .window = rgb(243, 245, 248),
    .card = rgb(255, 255, 255),
    .border = rgb(216, 221, 228),
    .edge = rgb(130, 139, 151),
    .line = rgb(233, 236, 240),
    .text = rgb(28, 36, 48),
    .muted = rgb(68, 79, 94),
    .faint = rgb(96, 105, 117),
    .accent = rgb(24, 98, 168),
    .accentText = rgb(255, 255, 255),
    .chosen = rgb(222, 235, 248),
    .chosenText = rgb(24, 98, 168),
    .hover = rgb(236, 241, 247),
    .locked = rgb(240, 243, 246),
    .good = rgb(46, 125, 80),
    .warning = rgb(154, 84, 0),
    .isSystems = false,
};

/// The system's colours of texts and of what is behind them.
struct SystemColours {
  Colour window;
  Colour windowText;
  Colour highlight;
  Colour highlightText;
  Colour grayText;
};

/// The colours for a user who asked for high contrast or for light text on dark. Stock controls
/// then have the system's colours, and anything lighter beside them would dazzle.
constexpr Palette paletteOf(const SystemColours& system) {
  return {
      .window = system.window,
      .card = system.window,
      .border = system.windowText,
      .edge = system.windowText,
      .line = system.windowText,
      .text = system.windowText,
      .muted = system.windowText,
      .faint = system.grayText,
      .accent = system.highlight,
      .accentText = system.highlightText,
      .chosen = system.highlight,
      .chosenText = system.highlightText,
      .hover = system.window,
      .locked = system.window,
      .good = system.windowText,
      .warning = system.windowText,
      .isSystems = true,
  };
}

/// A text, or a mark that tells something, in one of the colours on another one.
struct DrawnPair {
  Colour Palette::*ink = nullptr;
  Colour Palette::*ground = nullptr;
  bool isMark = false;
};

/// All that is drawn beside chosen rows. Whoever draws a text in other colours adds them here; a
/// test computes the contrast.
inline constexpr DrawnPair drawnPairs[] = {
    {&Palette::text, &Palette::window},        {&Palette::muted, &Palette::window},
    {&Palette::faint, &Palette::window},       {&Palette::warning, &Palette::window},
    {&Palette::text, &Palette::card},          {&Palette::muted, &Palette::card},
    {&Palette::faint, &Palette::card},         {&Palette::warning, &Palette::card},
    {&Palette::text, &Palette::locked},        {&Palette::muted, &Palette::locked},
    {&Palette::faint, &Palette::locked},       {&Palette::warning, &Palette::locked},
    {&Palette::text, &Palette::hover},         {&Palette::muted, &Palette::hover},
    {&Palette::faint, &Palette::hover},        {&Palette::warning, &Palette::hover},
    {&Palette::accentText, &Palette::accent},  {&Palette::chosenText, &Palette::chosen},
    {&Palette::accent, &Palette::card, true},  {&Palette::accent, &Palette::locked, true},
    {&Palette::edge, &Palette::card, true},    {&Palette::edge, &Palette::window, true},
    {&Palette::good, &Palette::card, true},    {&Palette::good, &Palette::hover, true},
    {&Palette::warning, &Palette::card, true}, {&Palette::warning, &Palette::hover, true},
};

/// On the chosen row of a grid, beside the above, in the usual colours. In the system's colours all
/// that stands on it is drawn in `chosenText`.
inline constexpr DrawnPair pairsOnChosenRow[] = {
    {&Palette::text, &Palette::chosen},          {&Palette::muted, &Palette::chosen},
    {&Palette::faint, &Palette::chosen},         {&Palette::warning, &Palette::chosen},
    {&Palette::accent, &Palette::chosen, true},  {&Palette::good, &Palette::chosen, true},
    {&Palette::warning, &Palette::chosen, true},
};
/// The colour around a field. The system's colours have none of their own behind a locked field.
constexpr Colour edgeOf(const Palette& colours, bool isUsable) {
  return isUsable || !colours.isSystems ? colours.edge : colours.faint;
}

/// That colour on what is chosen, in either palette.
constexpr Colour onChosen(const Palette& colours, Colour usual) {
  return colours.isSystems ? colours.chosenText : usual;
}

}  // namespace kebu::windows
