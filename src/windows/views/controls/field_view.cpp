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

void FieldView::place(const layout::Placement& placement) {
  headsColumn_ = placement.caption.bottom() <= placement.bounds.top;
  if (caption_) putWindow(caption_.get(), placement.caption);
  putWindow(handle(), placement.bounds);
}

void FieldView::refresh() {
  makeCaption(GetParent(handle()));
  if (caption_) {
    const std::string text = layout::withMnemonic(control().caption(), mnemonic_);
    setWindowText(caption_.get(), toWide(isMarked() ? text + " *" : text));
  }
  EnableWindow(handle(), looksEnabled());
}

void FieldView::applyTheme() {
  for (HWND window : {caption_.get(), handle()}) {
    if (!window) continue;
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(theme().font()), TRUE);
  }
}

HBRUSH FieldView::colours(HDC dc, HWND window) {
  if (window != caption_.get()) return nullptr;
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
