#pragma once

#include <string>

#include "windows/support/handles.h"

namespace kebu::windows {

/// The screen's device context, for measuring.
class ScreenDc {
 public:
  ScreenDc() : dc_(GetDC(nullptr)) {}
  ~ScreenDc() { ReleaseDC(nullptr, dc_); }
  ScreenDc(const ScreenDc&) = delete;
  ScreenDc& operator=(const ScreenDc&) = delete;
  HDC get() const { return dc_; }

 private:
  HDC dc_;
};

/// An object selected for as long as this lives.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
  ~Selected() { SelectObject(dc_, before_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

/// Measures texts of one font as they are drawn, on one line.
class TextRuler {
 public:
  explicit TextRuler(HFONT font) : font_(screen_.get(), font) {}
  /// In pixels.
  int widthOf(const std::string& utf8) const;

 private:
  ScreenDc screen_;
  Selected font_;
};

/// Answers WM_PAINT from a bitmap that is drawn first, so that nothing flickers.
class BufferedPaint {
 public:
  explicit BufferedPaint(HWND window);
  ~BufferedPaint();
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;
  HDC dc() const { return memory_.get(); }
  const RECT& area() const { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  HDC screen_;
  OwnedMemoryDc memory_;
  OwnedBitmap bitmap_;
  Selected selected_;
};

void fill(HDC dc, const RECT& area, COLORREF colour);
void frame(HDC dc, const RECT& area, COLORREF colour);
/// A filled area with round corners and a line around it.
void card(HDC dc, const RECT& area, int radius, COLORREF inside, COLORREF border);
/// A filled triangle that points down, in the middle of `area`; `size` is half its width.
void downArrow(HDC dc, const RECT& area, int size, COLORREF colour);
/// One line, cut off with dots where it does not fit; `format` as for DrawText.
void text(HDC dc, const std::wstring& text, RECT area, COLORREF colour, HFONT font, UINT format);

/// A tick, or a triangle with an exclamation mark, of a size in the middle of `area`.
void tickMark(HDC dc, const RECT& area, int size, COLORREF colour);
void warningMark(HDC dc, const RECT& area, int size, COLORREF colour);

enum class CheckState { Off, Mixed, On };
/// A check box in the visual style, in the middle of `area`.
void checkBox(HDC dc, HWND window, const RECT& area, CheckState state, bool enabled, int size);

}  // namespace kebu::windows
