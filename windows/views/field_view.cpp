#include "windows/views/field_view.h"

#include "windows/support/text.h"
#include "windows/views/layout/mnemonics.h"
#include "windows/views/window_text.h"

namespace kebu::windows {

FieldView::FieldView(ViewSite& site, controls::Control& model, const char* kind, HWND parent)
    : View(site, model, kind),
      caption_(createStock(L"STATIC", SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS, 0, parent)) {}

FieldView::~FieldView() {
  if (control_) DestroyWindow(control_);
  DestroyWindow(caption_);
}

void FieldView::place(const layout::Placement& placement) {
  headsColumn_ = placement.caption.bottom() <= placement.bounds.top;
  moveWindow(caption_, placement.caption);
  ShowWindow(caption_, placement.caption.isEmpty() ? SW_HIDE : SW_SHOWNA);
  moveWindow(control_, placement.bounds);
  ShowWindow(control_, placement.bounds.isEmpty() ? SW_HIDE : SW_SHOWNA);
}

void FieldView::refresh() {
  const std::string text = layout::withMnemonic(control().caption(), mnemonic_);
  setWindowText(caption_, toWide(isMarked() ? text + " *" : text));
  EnableWindow(control_, looksEnabled());
}

void FieldView::applyTheme() {
  for (HWND window : {caption_, control_}) {
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
