#pragma once

#include "windows/support/handles.h"
#include "windows/views/drawing/palette.h"
#include "windows/views/layout/metrics.h"

namespace kebu::windows {

/// The colours that apply now: the usual ones, or the system's where the user asked for them.
Palette currentPalette();

/// Fonts, colours and sizes at one resolution.
class Theme {
 public:
  explicit Theme(int dpi);

  int dpi() const { return metrics_.dpi; }
  const Palette& colours() const { return palette_; }
  const layout::Metrics& metrics() const { return metrics_; }
  int px(int units) const { return metrics_.px(units); }
  HFONT font() const { return font_.get(); }
  HFONT strong() const { return strong_.get(); }
  HFONT title() const { return title_.get(); }
  HBRUSH windowBrush() const { return windowBrush_.get(); }
  HBRUSH cardBrush() const { return cardBrush_.get(); }
  HBRUSH lockedBrush() const { return lockedBrush_.get(); }

 private:
  Palette palette_;
  layout::Metrics metrics_;
  OwnedFont font_;
  OwnedFont strong_;
  OwnedFont title_;
  OwnedBrush windowBrush_;
  OwnedBrush cardBrush_;
  OwnedBrush lockedBrush_;
};

/// Has a stock control, or the scroll bars of a window, drawn in colours that go with the theme's:
/// in the visual style, or without one in the system's colours.
void takeColours(HWND window, const Theme& theme);

}  // namespace kebu::windows
