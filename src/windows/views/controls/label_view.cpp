#include "windows/views/controls/label_view.h"

namespace kebu::windows {

namespace {

constexpr DWORD style = SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS | SS_NOPREFIX;

}  // namespace

LabelView::LabelView(ViewSite& site, controls::Label& model, HWND parent)
    : View(site, model, "Label"),
      label_(&model),
      role_(model.isWarning() ? Role::Warning : Role::Text),
      window_(createStock(L"STATIC", style, 0, parent, site.placeOfNewView().bounds)) {
  applyTheme();
}

bool LabelView::isUnknown() const {
  return label_ && label_->isUnknown() && label_->caption().empty();
}

LabelView::LabelView(ViewSite& site, controls::TitleBar& model, HWND parent)
    : View(site, model, "TitleBar"),
      role_(Role::Title),
      window_(createStock(L"STATIC", style, 0, parent)) {
  applyTheme();
}

void LabelView::applyTheme() {
  const HFONT special = role_ == Role::Warning ? theme().strong() : theme().title();
  setFont(handle(), role_ == Role::Text ? theme().font() : special);
}

HBRUSH LabelView::colours(HDC dc, HWND /*window*/) {
  const Palette& colours = theme().colours();
  COLORREF ink = role_ == Role::Text ? colours.muted : colours.text;
  if (isUnknown()) ink = colours.warning;
  return setInk(dc, looksEnabled() ? ink : colours.faint);
}

}  // namespace kebu::windows
