#include "windows/views/controls/field_view.h"

#include "windows/support/text.h"
#include "windows/views/layout/mnemonics.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

FieldView::FieldView(ViewSite& site, controls::Control& model, const char* kind, HWND parent)
    : View(site, model, kind) {
  makeCaption(parent);
}

void FieldView::makeCaption(HWND parent) {
  if (caption_ || control().caption().empty()) return;
  caption_ = createStock(L"STATIC", SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS, 0, parent);
}

FieldView::~FieldView() {
  for (HWND window : {control_, caption_}) {
    if (window) DestroyWindow(window);
  }
}

void FieldView::place(const layout::Placement& placement) {
  headsColumn_ = placement.caption.bottom() <= placement.bounds.top;
  if (caption_) putWindow(caption_, placement.caption);
  putWindow(control_, placement.bounds);
}

void FieldView::refresh() {
  makeCaption(GetParent(control_));
  if (caption_) {
    const std::string text = layout::withMnemonic(control().caption(), mnemonic_);
    setWindowText(caption_, toWide(isMarked() ? text + " *" : text));
  }
  EnableWindow(control_, looksEnabled());
}

void FieldView::applyTheme() {
  for (HWND window : {caption_, control_}) {
    if (!window) continue;
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(theme().font()), TRUE);
  }
}

HBRUSH FieldView::colours(HDC dc, HWND window) {
  if (window != caption_) return nullptr;
  SetTextColor(dc,
               looksEnabled() || headsColumn_ ? theme().colours().muted : theme().colours().faint);
  SetBkColor(dc, behind());
  return behindBrush();
}

void FieldView::describe(Inspection& inspection) {
  write(inspection.caption, toWide(control().caption()));
}

void FieldView::setMnemonic(std::size_t at) {
  mnemonic_ = at;
  refresh();
}

}  // namespace kebu::windows
