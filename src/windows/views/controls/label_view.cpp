#include "windows/views/controls/label_view.h"

#include "windows/support/text.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

constexpr DWORD style = SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS | SS_NOPREFIX;

}  // namespace

LabelView::LabelView(ViewSite& site, controls::Label& model, HWND parent)
    : View(site, model, "Label"),
      window_(createStock(L"STATIC", style, 0, parent)),
      role_(model.isWarning() ? Role::Warning : Role::Text) {
  applyTheme();
}

LabelView::LabelView(ViewSite& site, controls::TitleBar& model, HWND parent)
    : View(site, model, "TitleBar"),
      window_(createStock(L"STATIC", style, 0, parent)),
      role_(Role::Title) {
  applyTheme();
}

void LabelView::refresh() {
  setWindowText(handle(), toWide(control().caption()));
}

void LabelView::applyTheme() {
  HFONT font = theme().font();
  if (role_ == Role::Warning) font = theme().strong();
  if (role_ == Role::Title) font = theme().title();
  SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

HBRUSH LabelView::colours(HDC dc, HWND /*window*/) {
  const Palette& colours = theme().colours();
  const COLORREF ink = role_ == Role::Text ? colours.muted : colours.text;
  SetTextColor(dc, looksEnabled() ? ink : colours.faint);
  SetBkColor(dc, behind());
  return behindBrush();
}

}  // namespace kebu::windows
