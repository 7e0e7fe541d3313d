#include "windows/views/controls/combo_box_view.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "windows/support/text.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/window/guard.h"

namespace kebu::windows {

namespace {

constexpr UINT listClosed = 0x7001;  // a notification of our own
constexpr int listHeight = 280;      // in 96ths of an inch

}  // namespace

ComboBoxView::ComboBoxView(ViewSite& site, controls::ComboBox& model, HWND parent)
    : FieldView(site, model, "ComboBox", parent), model_(model) {
  layout::Rect open = site.placeOfNewView().bounds;
  if (!open.isEmpty()) open.height += theme().px(listHeight);
  setControl(createStock(
      L"COMBOBOX", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS,
      0, parent, open));
  if (!hasHeights()) setHeights();
}

// Not every system keeps to what it measured once the combo has got its font.
bool ComboBoxView::hasHeights() const {
  RECT area{};
  GetWindowRect(handle(), &area);
  return area.bottom - area.top == theme().metrics().fieldHeight() &&
         SendMessageW(handle(), CB_GETITEMHEIGHT, 0, 0) == rowHeight(theme(), false);
}

void ComboBoxView::place(const layout::Placement& placement) {
  // The height of a combo is that of its open list. It is smaller when it is asked for, so whether
  // it stands there already is found out here.
  layout::Placement open = placement;
  RECT now{};
  GetWindowRect(handle(), &now);
  MapWindowPoints(nullptr, GetParent(handle()), reinterpret_cast<POINT*>(&now), 2);
  const bool stands = now.left == open.bounds.left && now.top == open.bounds.top &&
                      now.right == open.bounds.right();
  if (stands) {
    open.bounds.height = static_cast<int>(now.bottom - now.top);
  } else if (!open.bounds.isEmpty()) {
    open.bounds.height += theme().px(listHeight);
  }
  FieldView::place(open);
}

void ComboBoxView::applyTheme() {
  FieldView::applyTheme();
  setHeights();
}

int ComboBoxView::rowHeight(const Theme& theme, bool isChosen) {
  // The height of a combo follows from its chosen row's, and should be an edit box's.
  constexpr int edges = 6;
  return isChosen ? theme.metrics().fieldHeight() - edges
                  : theme.metrics().lineHeight + theme.px(4);
}

void ComboBoxView::setHeights() {
  SendMessageW(handle(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), rowHeight(theme(), true));
  SendMessageW(handle(), CB_SETITEMHEIGHT, 0, rowHeight(theme(), false));
}

// Drawn here, since a combo itself does not centre the chosen row's text between its edges.
void ComboBoxView::drawItem(const DRAWITEMSTRUCT& item) {
  const Palette& colours = theme().colours();
  const bool isUsable = IsWindowEnabled(handle()) != 0;
  const bool isChosen = (item.itemState & ODS_SELECTED) && isUsable;
  const COLORREF inside = isChosen ? colours.accent : isUsable ? colours.card : colours.locked;
  fill(item.hDC, item.rcItem, inside);
  if (item.itemID < shown_.size()) {
    RECT area = item.rcItem;
    area.left += theme().px(4);
    SetBkMode(item.hDC, TRANSPARENT);
    const COLORREF ink = isChosen ? colours.accentText : isUsable ? colours.text : colours.faint;
    text(item.hDC, shown_[item.itemID], area, ink, theme().font(), DT_NOPREFIX);
  }
}

std::wstring ComboBoxView::rowText(std::size_t index) const {
  const controls::ComboBox::Row& row = model_.rows()[index];
  return toWide(model_.showsCodes() ? toText(row.code) + " - " + row.caption : row.caption);
}

std::wstring ComboBoxView::lineIn(HWND window) const {
  if (window != handle()) return FieldView::lineIn(window);
  const int chosen = chosenIndex();
  return chosen < 0 ? std::wstring() : rowText(static_cast<std::size_t>(chosen));
}

int ComboBoxView::chosenIndex() const {
  const auto* chosen = model_.selected();
  return chosen ? static_cast<int>(chosen - model_.rows().data()) : -1;
}

void ComboBoxView::fillRows() {
  std::vector<std::wstring> texts;
  for (std::size_t i = 0; i < model_.rows().size(); ++i) texts.push_back(rowText(i));
  if (texts == shown_) return;
  if (!shown_.empty()) SendMessageW(handle(), CB_RESETCONTENT, 0, 0);
  shown_ = std::move(texts);
  int widest = 0;
  for (const std::wstring& text : shown_) {
    SendMessageW(handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    widest = std::max(widest, theme().metrics().textWidth(toUtf8(text)));
  }
  SendMessageW(handle(), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest + theme().px(24)), 0);
}

void ComboBoxView::refresh() {
  FieldView::refresh();
  EnableWindow(handle(), looksEnabled() && model_.acceptsChanges());
  fillRows();
  if (SendMessageW(handle(), CB_GETCURSEL, 0, 0) != chosenIndex()) {
    SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(chosenIndex()), 0);
  }
}

void ComboBoxView::command(HWND /*from*/, UINT code) {
  const bool dropped = SendMessageW(handle(), CB_GETDROPPEDSTATE, 0, 0) != 0;
  if (code == CBN_SELENDOK && dropped) {
    takesWhenClosed_ = true;
  } else if (code == CBN_SELENDOK || (code == CBN_SELCHANGE && !dropped) || code == listClosed) {
    take();
  } else if (code == CBN_SELENDCANCEL) {
    takesWhenClosed_ = false;
    refresh();
  } else if (code == CBN_CLOSEUP && std::exchange(takesWhenClosed_, false)) {
    // The choice may take long or ask the user. It is made when the list is closed for good, which
    // would otherwise open again.
    PostMessageW(GetParent(handle()), WM_COMMAND, MAKEWPARAM(0, listClosed),
                 reinterpret_cast<LPARAM>(handle()));
  }
}

void ComboBoxView::take() {
  const auto index = static_cast<int>(SendMessageW(handle(), CB_GETCURSEL, 0, 0));
  if (index < 0 || index == chosenIndex()) return;
  const std::string code = toText(model_.rows()[static_cast<std::size_t>(index)].code);
  guarded([&] { model_.choose(code); });
  refresh();
}

void ComboBoxView::describe(Inspection& inspection) {
  FieldView::describe(inspection);
  const auto* chosen = model_.selected();
  writeText(inspection, chosen ? chosen->caption : "");
  inspection.count = static_cast<std::int32_t>(model_.rows().size());
  inspection.current = chosenIndex() + 1;
}

bool ComboBoxView::describePart(Inspection& inspection) {
  const auto& rows = model_.rows();
  const auto at = itemAsked(inspection, rows.size(), [&](std::size_t i, const std::string& key) {
    return toText(rows[i].code) == key;
  });
  if (!at) return false;
  describeWindow(inspection, handle());
  writeName(inspection, toText(rows[*at].code));
  writeText(inspection, rows[*at].caption);
  if (static_cast<int>(*at) == chosenIndex()) addMark(inspection, "chosen");
  return true;
}

}  // namespace kebu::windows
