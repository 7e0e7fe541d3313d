#include "windows/views/drawing/theme.h"

#include <uxtheme.h>

#include <cwchar>
#include <map>
#include <memory>
#include <string>

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

/// Whether the user asked for high contrast or for light text on dark.
bool takesSystemColours() {
  return isHighContrast() ||
         brightness(GetSysColor(COLOR_WINDOW)) < brightness(GetSysColor(COLOR_WINDOWTEXT));
}

}  // namespace

Palette currentPalette() {
  if (!takesSystemColours()) return lightPalette;
  return paletteOf({.window = GetSysColor(COLOR_WINDOW),
                    .windowText = GetSysColor(COLOR_WINDOWTEXT),
                    .highlight = GetSysColor(COLOR_HIGHLIGHT),
                    .highlightText = GetSysColor(COLOR_HIGHLIGHTTEXT),
                    .grayText = GetSysColor(COLOR_GRAYTEXT)});
}

Theme::Theme(int dpi)
    : palette_(currentPalette()),
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
  // A layout asks for the same few texts again and again.
  metrics_.textWidth = [font = font(), known = std::make_shared<std::map<std::string, int>>()](
                           const std::string& measured) {
    constexpr std::size_t most = 2000;
    const auto at = known->find(measured);
    if (at != known->end()) return at->second;
    if (known->size() >= most) known->clear();
    return known->emplace(measured, TextRuler(font).widthOf(measured)).first->second;
  };
}

void takeColours(HWND window, const Theme& theme) {
  if (!window) return;
  // A style that there is not turns visual styles off.
  const wchar_t* const style = theme.colours().isSystems ? L" " : nullptr;
  SetWindowTheme(window, style, style);
}

}  // namespace kebu::windows
