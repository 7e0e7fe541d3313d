#include "windows/views/drawing/edit_frame.h"

#include <algorithm>

#include "windows/views/drawing/painting.h"
#include "windows/views/window/subclass.h"

namespace kebu::windows {

namespace {

constexpr int sideEdge = 4;  // between the frame and the text, in 96ths of an inch

int textHeight(HWND edit) {
  const ScreenDc screen;
  const Selected font(screen.get(), reinterpret_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0)));
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen.get(), &metrics);
  return static_cast<int>(metrics.tmHeight);
}

/// The part of the control's area that its text gets.
RECT textArea(HWND edit, RECT area, const Theme& theme) {
  const LONG height = textHeight(edit);
  InflateRect(&area, -theme.px(sideEdge), 0);
  area.top += std::max((area.bottom - area.top - height) / 2, 0L);
  area.bottom = std::min(area.top + height, area.bottom);
  return area;
}

void paintFrame(HWND edit, const Theme& theme) {
  HDC const dc = GetWindowDC(edit);
  RECT area{};
  RECT client{};
  GetWindowRect(edit, &area);
  GetClientRect(edit, &client);
  MapWindowPoints(edit, nullptr, reinterpret_cast<POINT*>(&client), 2);
  OffsetRect(&client, -area.left, -area.top);
  OffsetRect(&area, -area.left, -area.top);
  ExcludeClipRect(dc, client.left, client.top, client.right, client.bottom);
  const bool isEditable =
      IsWindowEnabled(edit) && !(GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY);
  fill(dc, area, isEditable ? theme.colours().card : theme.colours().locked);
  frame(dc, area,
        GetFocus() == edit ? theme.colours().accent : edgeOf(theme.colours(), isEditable));
  ReleaseDC(edit, dc);
}

std::optional<LRESULT> answer(const Theme* theme, const ControlMessage& received) {
  HWND const edit = received.window;
  switch (received.message) {
    case WM_NCCALCSIZE: {
      RECT& area = *reinterpret_cast<RECT*>(received.lParam);  // both structures begin with it
      area = textArea(edit, area, *theme);
      return 0;
    }
    case WM_NCPAINT:
      paintFrame(edit, *theme);
      return 0;
    case WM_NCHITTEST:
      return HTCLIENT;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
      const LRESULT result = received.asUsual();
      paintFrame(edit, *theme);
      return result;
    }
    default:
      return std::nullopt;
  }
}

using Frame = Subclass<const Theme*, answer>;

}  // namespace

void frameEdit(HWND edit, const Theme& theme) {
  if (!Frame::isOn(edit)) {
    Frame::putOn(edit, &theme);
    // One that has no size yet gets its frame with its size.
    RECT area{};
    GetWindowRect(edit, &area);
    if (IsRectEmpty(&area)) return;
  }
  SetWindowPos(edit, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void redrawEditFrame(HWND edit) {
  RedrawWindow(edit, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
}

}  // namespace kebu::windows
