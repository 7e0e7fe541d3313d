#include "windows/views/drawing/painting.h"

#include <uxtheme.h>
#include <vssym32.h>

#include "windows/support/text.h"

namespace kebu::windows {

int TextRuler::widthOf(const std::string& utf8) const {
  const std::wstring text = toWide(utf8);
  SIZE size{};
  GetTextExtentPoint32W(screen_.get(), text.c_str(), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

BufferedPaint::BufferedPaint(HWND window) : window_(window) {
  BeginPaint(window, &paint_);
  const RECT& area = paint_.rcPaint;
  memory_ = CreateCompatibleDC(paint_.hdc);
  bitmap_ =
      CreateCompatibleBitmap(paint_.hdc, area.right - area.left > 0 ? area.right - area.left : 1,
                             area.bottom - area.top > 0 ? area.bottom - area.top : 1);
  before_ = SelectObject(memory_, bitmap_);
  SetWindowOrgEx(memory_, area.left, area.top, nullptr);
  SetBkMode(memory_, TRANSPARENT);
}

BufferedPaint::~BufferedPaint() {
  const RECT& area = paint_.rcPaint;
  BitBlt(paint_.hdc, area.left, area.top, area.right - area.left, area.bottom - area.top, memory_,
         area.left, area.top, SRCCOPY);
  SelectObject(memory_, before_);
  DeleteObject(bitmap_);
  DeleteDC(memory_);
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

void text(HDC dc, const std::wstring& text, RECT area, COLORREF colour, HFONT font, UINT format) {
  const Selected selected(dc, font);
  SetTextColor(dc, colour);
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area,
            format | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
}

void checkBox(HDC dc, HWND window, const RECT& area, CheckState state, bool enabled, int size) {
  RECT box{0, 0, size, size};
  OffsetRect(&box, (area.left + area.right - size) / 2, (area.top + area.bottom - size) / 2);
  if (HTHEME theme = OpenThemeData(window, L"BUTTON")) {
    const int off = enabled ? CBS_UNCHECKEDNORMAL : CBS_UNCHECKEDDISABLED;
    const int on = enabled ? CBS_CHECKEDNORMAL : CBS_CHECKEDDISABLED;
    DrawThemeBackground(theme, dc, BP_CHECKBOX, state == CheckState::On ? on : off, &box, nullptr);
    CloseThemeData(theme);
    return;
  }
  DrawFrameControl(dc, &box, DFC_BUTTON,
                   DFCS_BUTTONCHECK | (state == CheckState::On ? DFCS_CHECKED : 0U) |
                       (enabled ? 0U : DFCS_INACTIVE));
}

}  // namespace kebu::windows
