#include "windows/views/drawing/painting.h"

#include <uxtheme.h>
#include <vssym32.h>

#include <algorithm>
#include <vector>

#include "windows/support/text.h"

namespace kebu::windows {

namespace {

int widthOf(const RECT& area) {
  return static_cast<int>(area.right - area.left);
}

int heightOf(const RECT& area) {
  return static_cast<int>(area.bottom - area.top);
}

}  // namespace

int TextRuler::widthOf(const std::string& utf8) const {
  const std::wstring text = toWide(utf8);
  SIZE size{};
  GetTextExtentPoint32W(screen_.get(), text.c_str(), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

BufferedPaint::BufferedPaint(HWND window)
    : window_(window),
      screen_(BeginPaint(window, &paint_)),
      memory_(CreateCompatibleDC(screen_)),
      bitmap_(CreateCompatibleBitmap(screen_, std::max(widthOf(paint_.rcPaint), 1),
                                     std::max(heightOf(paint_.rcPaint), 1))),
      selected_(memory_.get(), bitmap_.get()) {
  SetWindowOrgEx(dc(), area().left, area().top, nullptr);
  SetBkMode(dc(), TRANSPARENT);
}

BufferedPaint::~BufferedPaint() {
  BitBlt(screen_, area().left, area().top, widthOf(area()), heightOf(area()), dc(), area().left,
         area().top, SRCCOPY);
  EndPaint(window_, &paint_);
}

void fill(HDC dc, const RECT& area, COLORREF colour) {
  SetDCBrushColor(dc, colour);
  FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void frame(HDC dc, const RECT& area, COLORREF colour) {
  SetDCBrushColor(dc, colour);
  FrameRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void card(HDC dc, const RECT& area, int radius, COLORREF inside, COLORREF border) {
  const Selected pen(dc, GetStockObject(DC_PEN));
  const Selected brush(dc, GetStockObject(DC_BRUSH));
  SetDCPenColor(dc, border);
  SetDCBrushColor(dc, inside);
  RoundRect(dc, area.left, area.top, area.right, area.bottom, radius, radius);
}

void downArrow(HDC dc, const RECT& area, int size, COLORREF colour) {
  const Selected pen(dc, GetStockObject(DC_PEN));
  const Selected brush(dc, GetStockObject(DC_BRUSH));
  SetDCPenColor(dc, colour);
  SetDCBrushColor(dc, colour);
  const LONG x = (area.left + area.right) / 2;
  const LONG y = (area.top + area.bottom - size) / 2;
  const POINT corners[] = {{x - size, y}, {x + size, y}, {x, y + size}};
  Polygon(dc, corners, 3);
}

void text(HDC dc, const std::wstring& text, RECT area, COLORREF colour, HFONT font, UINT format) {
  const Selected selected(dc, font);
  SetTextColor(dc, colour);
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area,
            format | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
}

namespace {

/// A square in the middle of an area, in which marks are drawn with parts of its size.
class MarkSquare {
 public:
  MarkSquare(const RECT& area, int size)
      : left_((area.left + area.right - size) / 2),
        top_((area.top + area.bottom - size) / 2),
        size_(size) {}
  /// In hundredths of the size.
  POINT at(int x, int y) const {
    return {left_ + MulDiv(x, size_, 100), top_ + MulDiv(y, size_, 100)};
  }

 private:
  LONG left_;
  LONG top_;
  int size_;
};

void polygon(HDC dc, const std::vector<POINT>& corners, COLORREF colour) {
  const Selected pen(dc, GetStockObject(DC_PEN));
  const Selected brush(dc, GetStockObject(DC_BRUSH));
  SetDCPenColor(dc, colour);
  SetDCBrushColor(dc, colour);
  Polygon(dc, corners.data(), static_cast<int>(corners.size()));
}

}  // namespace

void tickMark(HDC dc, const RECT& area, int size, COLORREF colour) {
  const MarkSquare square(area, size);
  polygon(dc,
          {square.at(0, 50), square.at(15, 35), square.at(38, 60), square.at(85, 8),
           square.at(100, 22), square.at(38, 92)},
          colour);
}

void warningMark(HDC dc, const RECT& area, int size, COLORREF colour) {
  const MarkSquare square(area, size);
  const Selected pen(dc, GetStockObject(DC_PEN));
  const Selected brush(dc, GetStockObject(NULL_BRUSH));
  SetDCPenColor(dc, colour);
  const POINT corners[] = {square.at(50, 2), square.at(100, 94), square.at(0, 94)};
  Polygon(dc, corners, 3);
  const POINT top = square.at(50, 34);
  const POINT bottom = square.at(50, 64);
  const POINT dot = square.at(50, 78);
  const int width = std::max(MulDiv(size, 10, 100), 1);
  fill(dc, {top.x, top.y, top.x + width, bottom.y}, colour);
  fill(dc, {dot.x, dot.y, dot.x + width, dot.y + width}, colour);
}

void checkBox(HDC dc, HWND window, const RECT& area, CheckState state, bool enabled, int size) {
  RECT box{0, 0, size, size};
  OffsetRect(&box, (area.left + area.right - size) / 2, (area.top + area.bottom - size) / 2);
  if (const Owned<HTHEME, CloseThemeData> theme{OpenThemeData(window, L"BUTTON")}) {
    int part = enabled ? CBS_UNCHECKEDNORMAL : CBS_UNCHECKEDDISABLED;
    if (state == CheckState::On) part = enabled ? CBS_CHECKEDNORMAL : CBS_CHECKEDDISABLED;
    if (state == CheckState::Mixed) part = enabled ? CBS_MIXEDNORMAL : CBS_MIXEDDISABLED;
    DrawThemeBackground(theme.get(), dc, BP_CHECKBOX, part, &box, nullptr);
    return;
  }
  DrawFrameControl(dc, &box, DFC_BUTTON,
                   (state == CheckState::Mixed ? DFCS_BUTTON3STATE : DFCS_BUTTONCHECK) |
                       (state != CheckState::Off ? DFCS_CHECKED : 0U) |
                       (enabled ? 0U : DFCS_INACTIVE));
}

}  // namespace kebu::windows
