#include "windows/views/controls/edit_box_view.h"

#include <commctrl.h>

#include <utility>

#include "controls/simple_controls.h"
#include "windows/support/text.h"
#include "windows/views/drawing/edit_frame.h"
#include "windows/views/drawing/push_button.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

EditBoxView::EditBoxView(ViewSite& site, controls::EditBox& model, HWND parent)
    : FieldView(site, model, "EditBox", parent), model_(model) {
  const DWORD masked = model.isMasked() ? ES_PASSWORD : 0U;
  const DWORD kind = model.lines() > 1 ? ES_MULTILINE | WS_VSCROLL : ES_AUTOHSCROLL | masked;
  setControl(createStock(L"EDIT", WS_TABSTOP | kind, hasFrame() ? 0 : WS_EX_CLIENTEDGE, parent,
                         site.placeOfNewView().bounds));
  if (hasFrame()) frameEdit(handle(), theme());
}

void EditBoxView::place(const layout::Placement& placement) {
  FieldView::place(placement);
  if (!lookup_ && !placement.lookup.isEmpty()) {
    // Reached with F4: the tabulator goes from value to value.
    lookup_ = createStock(L"BUTTON", BS_OWNERDRAW, 0, GetParent(handle()), placement.lookup);
    enableLookup();
  }
  if (lookup_) putWindow(lookup_.get(), placement.lookup);
}

void EditBoxView::enableLookup() {
  if (lookup_) EnableWindow(lookup_.get(), looksEnabled() && model_.isEditable());
}

void EditBoxView::refresh() {
  FieldView::refresh();
  if (std::exchange(wasEditable_, model_.isEditable()) != model_.isEditable()) {
    SendMessageW(handle(), EM_SETREADONLY, !model_.isEditable(), 0);
    enabledChanged();
  }
  if (std::exchange(maxLength_, model_.maxLength()) != model_.maxLength()) {
    SendMessageW(handle(), EM_LIMITTEXT, model_.maxLength(), 0);
  }
  if (std::exchange(hint_, model_.hint()) != model_.hint()) {
    const std::wstring hint = toWide(hint_);
    SendMessageW(handle(), EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(hint.c_str()));
  }
  enableLookup();
  // What is being typed stays until it is taken or refused.
  if (touched_ && model_.text() == shown_) return;
  restore();
}

void EditBoxView::applyTheme() {
  FieldView::applyTheme();
  if (hasFrame()) frameEdit(handle(), theme());
}

void EditBoxView::enabledChanged() {
  FieldView::enabledChanged();
  redrawEditFrame(handle());
}

void EditBoxView::restore() {
  showing_ = true;
  shown_ = model_.text();
  touched_ = false;
  setWindowText(handle(), toWide(shown_));
  showing_ = false;
}

bool EditBoxView::commit() {
  if (!touched_ || committing_) return true;
  const std::string typed = toUtf8(windowText(handle()));
  if (typed == model_.text()) {
    touched_ = false;
    return true;
  }
  const std::string before = model_.text();
  touched_ = false;
  committing_ = true;
  const bool accepted = guarded([&] { model_.type(typed); });
  committing_ = false;
  restore();
  return accepted && model_.text() != before;
}

void EditBoxView::command(HWND from, UINT code) {
  if (from == lookup_.get()) {
    if (code == BN_CLICKED) lookup();
    return;
  }
  if (code == EN_CHANGE && !showing_) touched_ = true;
  if (code == EN_MAXTEXT) MessageBeep(MB_OK);  // a part of what was pasted is refused
  if (code == EN_SETFOCUS) SendMessageW(handle(), EM_SETSEL, 0, -1);
  if (code == EN_KILLFOCUS) commit();
}

void EditBoxView::lookup() {
  commit();
  guarded([&] { model_.lookup(); });
  if (IsWindowEnabled(handle())) SetFocus(handle());
}

std::function<void()> EditBoxView::actionFor(const Key& key) {
  if (key.isPlain(VK_F4) && model_.hasLookup()) return [this] { lookup(); };
  if (key.isPlain(VK_ESCAPE) && touched_) {
    return [this] {
      restore();
      SendMessageW(handle(), EM_SETSEL, 0, -1);
    };
  }
  return {};
}

void EditBoxView::drawItem(const DRAWITEMSTRUCT& item) {
  drawPushButton(item, theme(),
                 {L"\u2026", {}, false, behind(), site().hovered() == item.hwndItem});
}

HBRUSH EditBoxView::colours(HDC dc, HWND window) {
  if (window == handle() && (!looksEnabled() || !model_.isEditable())) {
    SetTextColor(dc, looksEnabled() ? theme().colours().muted : theme().colours().faint);
    SetBkColor(dc, theme().colours().locked);
    return theme().lockedBrush();
  }
  if (window == handle()) {
    SetTextColor(dc, theme().colours().text);
    SetBkColor(dc, theme().colours().card);
    return theme().cardBrush();
  }
  return FieldView::colours(dc, window);
}

void EditBoxView::describe(Inspection& inspection) {
  FieldView::describe(inspection);
  const std::wstring text = windowText(handle());
  write(inspection.text, model_.isMasked() ? std::wstring(text.size(), L'*') : text);
  if (model_.isMasked()) addMark(inspection, "masked");
  if (!model_.isEditable()) addMark(inspection, "read-only");
  if (model_.isRequired()) addMark(inspection, "required");
  if (model_.hasLookup()) addMark(inspection, "look-up");
  if (model_.isUnknown()) addMark(inspection, "unknown");
  write(inspection.hint, toWide(model_.hint()));
  const auto* const beside =
      model_.description() ? controls::as<controls::Label>(*model_.description()) : nullptr;
  const bool isUnknown = beside && beside->isUnknown() && beside->caption().empty();
  if (beside) {
    write(inspection.description, toWide(isUnknown ? beside->unknownText() : beside->caption()));
  } else if (model_.text().empty()) {
    write(inspection.description, toWide(model_.hint()));
  }
}

bool EditBoxView::describePart(Inspection& inspection) {
  if (inspection.part != Inspected::Lookup || !lookup_) return false;
  describeWindow(inspection, lookup_.get());
  const std::string& name = model_.caption().empty() ? model_.spokenName() : model_.caption();
  write(inspection.spoken, toWide(translated("Elenco") + ": " + name));
  write(inspection.shortcut, std::wstring(L"F4"));
  return true;
}

std::wstring EditBoxView::lineIn(HWND window) const {
  const bool isHidden = window == handle() && (model_.isMasked() || model_.lines() > 1);
  return isHidden ? std::wstring() : FieldView::lineIn(window);
}

std::optional<PartId> EditBoxView::partIn(HWND window) const {
  if (lookup_ && window == lookup_.get()) return PartId{Inspected::Lookup, 0, 0};
  return FieldView::partIn(window);
}

}  // namespace kebu::windows
