#include "windows/views/drawing/theme.h"

#include <uxtheme.h>

#include <cwchar>

#include "windows/views/drawing/painting.h"
#include "windows/views/window/dpi.h"

namespace kebu::windows {

namespace {

bool isHighContrast() {
  HIGHCONTRASTW asked{};
  asked.cbSize = sizeof asked;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof asked, &asked, 0) &&
         (asked.dwFlags & HCF_HIGHCONTRASTON);
}

OwnedFont makeFont(LOGFONTW font, int percent, LONG weight) {
  font.lfHeight = MulDiv(font.lfHeight, percent, 100);
  font.lfWeight = weight;
  return OwnedFont(CreateFontIndirectW(&font));
}

int brightness(COLORREF colour) {
  return GetRValue(colour) * 3 + GetGValue(colour) * 6 + GetBValue(colour);
}

/// Whether the user asked for high contrast or for light text on dark. Stock controls then have the
/// system's colours, and anything lighter beside them would dazzle.
bool takesSystemColours() {
  return isHighContrast() ||
         brightness(GetSysColor(COLOR_WINDOW)) < brightness(GetSysColor(COLOR_WINDOWTEXT));
}

}  // namespace

Palette Palette::current() {
  if (takesSystemColours()) {
    const COLORREF window = GetSysColor(COLOR_WINDOW);
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF chosen = GetSysColor(COLOR_HIGHLIGHT);
    const COLORREF onChosen = GetSysColor(COLOR_HIGHLIGHTTEXT);
    const COLORREF faint = GetSysColor(COLOR_GRAYTEXT);
    return {.window = window,
            .card = window,
            .border = text,
            .line = text,
            .text = text,
            .muted = text,
            .faint = faint,
            .accent = chosen,
            .accentText = onChosen,
            .chosen = window,
            .chosenText = text,
            .hover = window,
            .locked = window,
            .good = text,
            .warning = text,
            .isSystems = true};
  }
  return {.window = RGB(243, 245, 248),
          .card = RGB(255, 255, 255),
          .border = RGB(216, 221, 228),
          .line = RGB(233, 236, 240),
          .text = RGB(28, 36, 48),
          .muted = RGB(84, 96, 112),
          .faint = RGB(152, 161, 173),
          .accent = RGB(24, 98, 168),
          .accentText = RGB(255, 255, 255),
          .chosen = RGB(222, 235, 248),
          .chosenText = RGB(24, 98, 168),
          .hover = RGB(236, 241, 247),
          .locked = RGB(244, 246, 248),
          .good = RGB(46, 139, 87),
          .warning = RGB(214, 137, 16),
          .isSystems = false};
}

Theme::Theme(int dpi)
    : palette_(Palette::current()),
      windowBrush_(CreateSolidBrush(palette_.window)),
      cardBrush_(CreateSolidBrush(palette_.card)),
      lockedBrush_(CreateSolidBrush(palette_.locked)) {
  const LOGFONTW base = messageFont(dpi);
  font_ = makeFont(base, 100, base.lfWeight);
  strong_ = makeFont(base, 100, FW_SEMIBOLD);
  title_ = makeFont(base, 155, FW_SEMIBOLD);
  metrics_.dpi = dpi;
  const ScreenDc screen;
  const Selected selected(screen.get(), font());
  TEXTMETRICW text{};
  GetTextMetricsW(screen.get(), &text);
  metrics_.lineHeight = static_cast<int>(text.tmHeight);
  metrics_.textWidth = [font = font()](const std::string& measured) {
    return TextRuler(font).widthOf(measured);
  };
}

void takeColours(HWND window, const Theme& theme) {
  if (!window) return;
  // A style that there is not turns visual styles off.
  const wchar_t* const style = theme.colours().isSystems ? L" " : nullptr;
  SetWindowTheme(window, style, style);
}

}  // namespace kebu::windows
