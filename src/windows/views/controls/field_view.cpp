#include "windows/views/controls/field_view.h"

#include <utility>

#include "windows/support/text.h"

namespace kebu::windows {

FieldView::FieldView(ViewSite& site, controls::Control& model, const char* kind, HWND parent)
    : View(site, model, kind) {
  makeCaption(parent);
}

void FieldView::makeCaption(HWND parent) {
  if (caption_ || control().caption().empty()) return;
  caption_ = createStock(L"STATIC", SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS, 0, parent,
                         site().placeOfNewView().caption, markedCaption());
}

void FieldView::place(const layout::Placement& placement) {
  headsColumn_ = placement.caption.bottom() <= placement.bounds.top;
  if (caption_) putWindow(caption_.get(), placement.caption);
  putWindow(handle(), placement.bounds);
}

void FieldView::standBehind(HWND previous) {
  putBehind(caption_.get(), previous);
  putBehind(handle(), caption_ ? caption_.get() : previous);
}

void FieldView::refresh() {
  makeCaption(GetParent(handle()));
  if (caption_) {
    setWindowText(caption_.get(), markedCaption() + (isMarked() ? L" *" : L""));
  }
  EnableWindow(handle(), looksEnabled());
  if (std::exchange(lookedEnabled_, looksEnabled()) != looksEnabled()) enabledChanged();
}

void FieldView::enabledChanged() {
  // A caption stays an enabled control, and is not drawn again by itself.
  if (caption_) InvalidateRect(caption_.get(), nullptr, TRUE);
}

void FieldView::applyTheme() {
  setFont(caption_.get(), theme().font());
  View::applyTheme();
}

HBRUSH FieldView::colours(HDC dc, HWND window) {
  if (window != caption_.get()) return nullptr;
  const bool isMuted = looksEnabled() || headsColumn_;
  return setInk(dc, isMuted ? theme().colours().muted : theme().colours().faint);
}

void FieldView::describe(Inspection& inspection) {
  write(inspection.caption, toWide(control().caption()));
}

}  // namespace kebu::windows
