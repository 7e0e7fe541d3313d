#include "windows/views/controls/combo_box_view.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "windows/support/text.h"
#include "windows/views/accessibility/accessible_object.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/window/common_controls.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/window.h"
#include "windows/views/window/window_place.h"

namespace kebu::windows {

namespace {

constexpr UINT listClosed = 0x7001;  // a notification of our own
// In 96ths of an inch.
constexpr int listHeight = 280;
constexpr int textEdge = 4;
constexpr int arrowWidth = 18;

}  // namespace

/// Stands for a combo box until somebody uses it.
class ComboBoxView::Unused : public Window {
 public:
  Unused(ComboBoxView& view, HINSTANCE module, HWND parent, const layout::Rect& place)
      : view_(view) {
    const DWORD shown = place.isEmpty() ? 0U : WS_VISIBLE;
    create(module, {.className = L"kebu.combo", .style = WS_CHILD | WS_TABSTOP | shown}, parent,
           toRECT(place));
  }

 protected:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case WM_GETOBJECT:
        if (const auto object = answerGetObject(view_, {}, wParam, lParam)) return *object;
        break;
      case WM_ERASEBKGND:
        return 1;
      case WM_PAINT:
        view_.paint(handle());
        return 0;
      case WM_SIZE:
      case WM_ENABLE:
        invalidate();
        break;
      case WM_SETFOCUS: {
        view_.makeCombo();
        HWND const own = handle();
        // Whoever loses the focus takes over what was typed, which may end this object.
        SetFocus(view_.handle());
        ShowWindow(own, SW_HIDE);
        return 0;
      }
      case WM_LBUTTONDOWN:
        view_.makeCombo();
        ShowWindow(handle(), SW_HIDE);
        [[fallthrough]];
      case WM_LBUTTONUP:
        // Later ones are those that a program sends.
        return view_.isMade() ? SendMessageW(view_.handle(), message, wParam, lParam) : 0;
      default:
        break;
    }
    return Window::answer(message, wParam, lParam);
  }

 private:
  ComboBoxView& view_;
};

ComboBoxView::ComboBoxView(ViewSite& site, controls::ComboBox& model, HWND parent)
    : FieldView(site, model, "ComboBox", parent),
      model_(model),
      unused_(
          std::make_unique<Unused>(*this, site.module(), parent, site.placeOfNewView().bounds)) {
  adopt(unused_->handle());
}

ComboBoxView::~ComboBoxView() = default;

HWND ComboBoxView::handle() const {
  return isMade() ? FieldView::handle() : unused_->handle();
}

void ComboBoxView::makeCombo() {
  if (isMade()) return;
  const CommonControls::Scope scope;
  HWND const parent = GetParent(unused_->handle());
  RECT place{};
  GetWindowRect(unused_->handle(), &place);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
  place.bottom += theme().px(listHeight);
  setControl(createStock(
      L"COMBOBOX", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS,
      0, parent, toRect(place)));
  if (!hasHeights()) setHeights();
  putBehind(handle(), unused_->handle());
  refresh();
}

// Not every system keeps to what it measured once the combo has got its font.
bool ComboBoxView::hasHeights() const {
  RECT area{};
  GetWindowRect(handle(), &area);
  return area.bottom - area.top == theme().metrics().fieldHeight() &&
         SendMessageW(handle(), CB_GETITEMHEIGHT, 0, 0) == rowHeight(theme(), false);
}

void ComboBoxView::place(const layout::Placement& placement) {
  if (!isMade()) {
    FieldView::place(placement);
    return;
  }
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
  if (isMade()) setHeights();
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

void ComboBoxView::drawItem(const DRAWITEMSTRUCT& item) {
  if (item.itemState & ODS_COMBOBOXEDIT) {
    drawChosen(item.hDC, item.rcItem);
    return;
  }
  const Palette& colours = theme().colours();
  const bool isChosen = (item.itemState & ODS_SELECTED) != 0;
  fill(item.hDC, item.rcItem, isChosen ? colours.accent : colours.card);
  if (item.itemID >= shown_.size()) return;
  RECT area = item.rcItem;
  area.left += theme().px(textEdge);
  SetBkMode(item.hDC, TRANSPARENT);
  text(item.hDC, shown_[item.itemID], area, isChosen ? colours.accentText : colours.text,
       theme().font(), DT_NOPREFIX);
}

// With the focus, in the colours of a chosen row.
void ComboBoxView::drawChosen(HDC dc, const RECT& area) const {
  const Palette& colours = theme().colours();
  const bool isUsable = IsWindowEnabled(handle()) != 0;
  const bool isChosen = isUsable && GetFocus() == handle();
  fill(dc, area, isChosen ? colours.accent : isUsable ? colours.card : colours.locked);
  RECT words = area;
  words.left += theme().px(textEdge);
  SetBkMode(dc, TRANSPARENT);
  const COLORREF ink = isChosen ? colours.accentText : isUsable ? colours.text : colours.faint;
  text(dc, lineIn(handle()), words, ink, theme().font(), DT_NOPREFIX);
}

bool ComboBoxView::paint(HWND window) {
  if (window != handle()) return false;
  PAINTSTRUCT painting{};
  HDC const dc = BeginPaint(window, &painting);
  const Palette& colours = theme().colours();
  const bool isUsable = IsWindowEnabled(window) != 0;
  RECT area{};
  GetClientRect(window, &area);
  fill(dc, area, isUsable ? colours.card : colours.locked);
  frame(dc, area, GetFocus() == window ? colours.accent : edgeOf(colours, isUsable));
  InflateRect(&area, -theme().px(2), -theme().px(2));
  RECT arrow = area;
  arrow.left = area.right = area.right - theme().px(arrowWidth);
  drawChosen(dc, area);
  downArrow(dc, arrow, theme().px(4), isUsable ? colours.muted : colours.faint);
  EndPaint(window, &painting);
  return true;
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
  if (!isMade()) {
    unused_->invalidate();
    return;
  }
  fillRows();
  if (SendMessageW(handle(), CB_GETCURSEL, 0, 0) != chosenIndex()) {
    SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(chosenIndex()), 0);
  }
}

void ComboBoxView::command(HWND /*from*/, UINT code) {
  InvalidateRect(handle(), nullptr, FALSE);
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
