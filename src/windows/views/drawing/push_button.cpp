#include "windows/views/drawing/push_button.h"

#include "windows/views/drawing/painting.h"

namespace kebu::windows {

namespace {

int widthOf(HDC dc, const std::wstring& text, HFONT font) {
  const Selected selected(dc, font);
  RECT area{};
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area, DT_SINGLELINE | DT_CALCRECT);
  return static_cast<int>(area.right);
}

}  // namespace

void drawPushButton(const DRAWITEMSTRUCT& item, const Theme& theme, const PushButtonFace& face) {
  const Palette& colours = theme.colours();
  const bool enabled = !(item.itemState & ODS_DISABLED);
  const bool pressed = (item.itemState & ODS_SELECTED) != 0;
  const bool isMain = face.isMain && enabled;
  RECT area = item.rcItem;
  SetBkMode(item.hDC, TRANSPARENT);
  fill(item.hDC, area, face.behind);
  const bool hovered = face.isHovered && enabled;
  const Colour idle = hovered ? colours.hover : colours.card;
  const COLORREF inside = isMain ? colours.accent : pressed ? colours.chosen : idle;
  card(item.hDC, area, theme.px(6), enabled ? inside : face.behind,
       isMain || hovered ? colours.accent : colours.border);
  if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT)) {
    RECT ring = area;
    InflateRect(&ring, -theme.px(2), -theme.px(2));
    card(item.hDC, ring, theme.px(4), inside, isMain ? colours.accentText : colours.accent);
  }
  if (pressed) OffsetRect(&area, 0, 1);

  const Colour usual = pressed ? onChosen(colours, colours.text) : colours.text;
  const COLORREF ink = !enabled ? colours.faint : isMain ? colours.accentText : usual;
  if (face.pointsDown) {
    downArrow(item.hDC, area, theme.px(4), ink);
    return;
  }
  const UINT cues = item.itemState & ODS_NOACCEL ? DT_HIDEPREFIX : 0U;
  const int gap = face.key.empty() ? 0 : theme.px(10);
  const int textWidth = widthOf(item.hDC, face.text, theme.font());
  const int keyWidth = face.key.empty() ? 0 : widthOf(item.hDC, face.key, theme.font());
  area.left += (area.right - area.left - textWidth - gap - keyWidth) / 2;
  text(item.hDC, face.text, area, ink, theme.font(), cues);
  area.left += textWidth + gap;
  if (!face.key.empty()) {
    text(item.hDC, face.key, area, isMain || pressed || !enabled ? ink : colours.muted,
         theme.font(), DT_NOPREFIX);
  }
}

}  // namespace kebu::windows
