#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

#include "windows/views/layout/metrics.h"

namespace kebu::windows {

struct DeleteGdiObject {
  using pointer = HGDIOBJ;
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using GdiObject = std::unique_ptr<std::remove_pointer_t<HGDIOBJ>, DeleteGdiObject>;

/// The colours of a window; the system's own where the user asked for high contrast.
struct Palette {
  COLORREF window;  ///< behind everything
  COLORREF card;    ///< behind a group of controls
  COLORREF border;
  COLORREF line;  ///< between rows
  COLORREF text;
  COLORREF muted;  ///< captions, descriptions
  COLORREF faint;  ///< what cannot be used now
  COLORREF accent;
  COLORREF accentText;  ///< on the accent
  COLORREF chosen;      ///< behind a chosen row or link
  COLORREF hover;
  COLORREF locked;  ///< behind what cannot be edited
  COLORREF good;
  COLORREF warning;

  static Palette current();
};

/// Fonts, colours and sizes at one resolution.
class Theme {
 public:
  explicit Theme(int dpi);

  int dpi() const { return metrics_.dpi; }
  const Palette& colours() const { return palette_; }
  const layout::Metrics& metrics() const { return metrics_; }
  int px(int units) const { return metrics_.px(units); }
  HFONT font() const { return static_cast<HFONT>(font_.get()); }
  HFONT strong() const { return static_cast<HFONT>(strong_.get()); }
  HFONT title() const { return static_cast<HFONT>(title_.get()); }
  HBRUSH windowBrush() const { return static_cast<HBRUSH>(windowBrush_.get()); }
  HBRUSH cardBrush() const { return static_cast<HBRUSH>(cardBrush_.get()); }
  HBRUSH lockedBrush() const { return static_cast<HBRUSH>(lockedBrush_.get()); }

 private:
  Palette palette_;
  layout::Metrics metrics_;
  GdiObject font_;
  GdiObject strong_;
  GdiObject title_;
  GdiObject windowBrush_;
  GdiObject cardBrush_;
  GdiObject lockedBrush_;
};

}  // namespace kebu::windows
