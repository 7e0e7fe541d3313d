#include "windows/views/controls/check_box_view.h"

#include <algorithm>

#include "windows/support/text.h"
#include "windows/views/window/guard.h"

namespace kebu::windows {

CheckBoxView::CheckBoxView(ViewSite& site, controls::CheckBox& model, HWND parent)
    : View(site, model, "CheckBox"),
      model_(model),
      window_(createStock(L"BUTTON", WS_TABSTOP | BS_CHECKBOX, 0, parent,
                          boxIn(site.placeOfNewView()), markedCaption())) {}

// As wide as its text, so that a click beside it does nothing.
layout::Rect CheckBoxView::boxIn(const layout::Placement& placement) const {
  layout::Rect bounds = placement.bounds;
  bounds.width =
      std::min(bounds.width, theme().metrics().textWidth(model_.caption()) + theme().px(28));
  return bounds;
}

void CheckBoxView::place(const layout::Placement& placement) {
  putWindow(handle(), boxIn(placement));
}

void CheckBoxView::refresh() {
  setWindowText(handle(), markedCaption());
  SendMessageW(handle(), BM_SETCHECK, model_.isTicked() ? BST_CHECKED : BST_UNCHECKED, 0);
  EnableWindow(handle(), looksEnabled() && model_.acceptsChanges());
}

void CheckBoxView::command(HWND /*from*/, UINT code) {
  if (code != BN_CLICKED) return;
  guarded([&] { model_.tick(!model_.isTicked()); });
  refresh();
}

HBRUSH CheckBoxView::colours(HDC dc, HWND /*window*/) {
  return setInk(dc, looksEnabled() ? theme().colours().text : theme().colours().faint);
}

void CheckBoxView::reachByMnemonic() {
  SetFocus(handle());
  command(handle(), BN_CLICKED);
}

void CheckBoxView::describe(Inspection& inspection) {
  writeText(inspection, model_.isTicked() ? "1" : "0");
  if (model_.isTicked()) addMark(inspection, "chosen");
  write(inspection.spoken, toWide(model_.caption()));
}

}  // namespace kebu::windows
