#include "windows/views/controls/side_bar_view.h"

#include <utility>

#include "windows/support/text.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/window/guard.h"

namespace kebu::windows {

SideBarView::SideBarView(ViewSite& site, controls::SideBar& model, HWND parent)
    : View(site, model, "SideBar"),
      model_(model),
      window_(createStock(L"LISTBOX",
                          WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_OWNERDRAWFIXED |
                              LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT,
                          0, parent)) {
  Subclass<SideBarView*, &SideBarView::answer>::putOn(handle(), this);
  applyTheme();
}

void SideBarView::applyTheme() {
  View::applyTheme();
  SendMessageW(handle(), LB_SETITEMHEIGHT, 0, theme().metrics().lineHeight + theme().px(19));
}

int SideBarView::chosenIndex() const {
  const auto* chosen = model_.selected();
  return chosen ? static_cast<int>(chosen - model_.links().data()) : -1;
}

void SideBarView::refresh() {
  std::vector<std::wstring> texts;
  for (const auto& link : model_.links()) {
    // Screen readers read the list's own text.
    texts.push_back(toWide(link.text) + (link.marked ? L" *" : L""));
  }
  if (texts != texts_) {
    texts_ = std::move(texts);
    SendMessageW(handle(), LB_RESETCONTENT, 0, 0);
    for (const std::wstring& text : texts_) {
      SendMessageW(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
  }
  SendMessageW(handle(), LB_SETCURSEL, static_cast<WPARAM>(chosenIndex()), 0);
  EnableWindow(handle(), looksEnabled());
  InvalidateRect(handle(), nullptr, TRUE);
}

void SideBarView::command(HWND /*from*/, UINT code) {
  // Leaving the list without opening a link shows the chosen one again.
  if (code == LBN_KILLFOCUS) refresh();
  // The arrows only move; Enter and Space open.
  if (code != LBN_SELCHANGE || movesByKey_) return;
  const auto index = static_cast<int>(SendMessageW(handle(), LB_GETCURSEL, 0, 0));
  if (index >= 0 && index != chosenIndex()) open(static_cast<std::size_t>(index));
}

int SideBarView::indexAt(LPARAM point) const {
  const LRESULT found = SendMessageW(handle(), LB_ITEMFROMPOINT, 0, point);
  return HIWORD(found) ? -1 : LOWORD(found);  // the high word is set for a point beside the items
}

// A click on the chosen link opens its page again. The list box sends no notification for it.
std::optional<LRESULT> SideBarView::answer(const ControlMessage& received) {
  const UINT message = received.message;
  if (message == WM_LBUTTONDOWN) {
    const int index = indexAt(received.lParam);
    pressed_ = index == chosenIndex() ? index : -1;
  }
  if (message == WM_MOUSEMOVE && pointer_.moved()) pointerOn(indexAt(received.lParam));
  if (message == WM_MOUSELEAVE) pointerOn(-1);
  movesByKey_ = message == WM_KEYDOWN || message == WM_CHAR;
  const LRESULT result = received.asUsual();
  movesByKey_ = false;
  if (message == WM_LBUTTONUP) {
    const int pressed = std::exchange(pressed_, -1);
    if (pressed >= 0 && pressed == indexAt(received.lParam)) {
      open(static_cast<std::size_t>(pressed));
    }
  }
  return result;
}

void SideBarView::pointerOn(int index) {
  const int before = std::exchange(hot_, index);
  if (before == index) return;
  for (const int each : {before, index}) {
    RECT item{};
    if (each < 0) continue;
    SendMessageW(handle(), LB_GETITEMRECT, static_cast<WPARAM>(each),
                 reinterpret_cast<LPARAM>(&item));
    InvalidateRect(handle(), &item, FALSE);
  }
  if (index < 0) return;
  TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, handle(), 0};
  TrackMouseEvent(&leaving);
}

void SideBarView::open(std::size_t index) {
  const std::int32_t view = model_.links().at(index).view;
  if (site().commit()) guarded([&] { model_.click(view); });
  refresh();
}

std::function<void()> SideBarView::actionFor(const Key& key) {
  if (GetFocus() != handle() || !(key.isPlain(VK_RETURN) || key.isPlain(VK_SPACE))) return {};
  return [this] {
    const LRESULT index = SendMessageW(handle(), LB_GETCURSEL, 0, 0);
    if (index >= 0) open(static_cast<std::size_t>(index));
  };
}

void SideBarView::openAt(std::size_t index) {
  if (index < model_.links().size()) open(index);
}

void SideBarView::step(int by) {
  const int next = chosenIndex() + by;
  if (next < 0 || next >= static_cast<int>(model_.links().size())) return;
  open(static_cast<std::size_t>(next));
}

void SideBarView::drawItem(const DRAWITEMSTRUCT& item) {
  if (item.itemID >= model_.links().size()) return;
  const Palette& colours = theme().colours();
  const bool chosen = static_cast<int>(item.itemID) == chosenIndex();
  SetBkMode(item.hDC, TRANSPARENT);
  fill(item.hDC, item.rcItem, colours.card);
  RECT band = item.rcItem;
  InflateRect(&band, -theme().px(8), -theme().px(2));
  if (chosen) {
    card(item.hDC, band, theme().px(6), colours.chosen, colours.chosen);
    RECT bar = band;
    InflateRect(&bar, 0, -theme().px(7));
    bar.right = bar.left + theme().px(3);
    fill(item.hDC, bar, colours.accent);
  } else if (static_cast<int>(item.itemID) == hot_ && looksEnabled()) {
    card(item.hDC, band, theme().px(6), colours.hover, colours.border);
  }
  if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT)) {
    frame(item.hDC, band, colours.accent);
  }
  band.left += theme().px(14);
  if (model_.links()[item.itemID].marked) {
    RECT dot = band;
    dot.right -= theme().px(10);
    dot.left = dot.right - theme().px(8);
    dot.top = (band.top + band.bottom) / 2 - theme().px(4);
    dot.bottom = dot.top + theme().px(8);
    const Colour mark = chosen ? onChosen(colours, colours.warning) : colours.warning;
    card(item.hDC, dot, theme().px(8), mark, mark);
    band.right = dot.left;
  }
  text(item.hDC, toWide(model_.links()[item.itemID].text), band,
       looksEnabled() && !site().isBusy() ? (chosen ? colours.chosenText : colours.text)
                                          : colours.faint,
       chosen ? theme().strong() : theme().font(), DT_NOPREFIX);
}

HBRUSH SideBarView::colours(HDC /*dc*/, HWND /*window*/) {
  return theme().cardBrush();
}

void SideBarView::describe(Inspection& inspection) {
  View::describe(inspection);
  inspection.count = static_cast<std::int32_t>(model_.links().size());
  inspection.current = chosenIndex() + 1;
  inspection.index = static_cast<std::int32_t>(SendMessageW(handle(), LB_GETCARETINDEX, 0, 0));
  write(inspection.spoken, toWide(translated("Pagine")));
}

PartId SideBarView::partAt(POINT point) {
  const int index = indexAt(MAKELPARAM(point.x, point.y));
  return index < 0 ? PartId{} : PartId{Inspected::Item, 0, index};
}

bool SideBarView::goToPart(const PartId& part) {
  return SendMessageW(handle(), LB_SETCURSEL, static_cast<WPARAM>(part.index), 0) != LB_ERR;
}

bool SideBarView::describePart(Inspection& inspection) {
  const auto& links = model_.links();
  const auto at = itemAsked(inspection, links.size(), [&](std::size_t i, const std::string& key) {
    return std::to_string(links[i].view) == key;
  });
  if (!at) return false;
  describeWindow(inspection, handle());
  SendMessageW(handle(), LB_GETITEMRECT, *at, reinterpret_cast<LPARAM>(&inspection.bounds));
  writeName(inspection, std::to_string(links[*at].view));
  writeText(inspection, links[*at].text);
  if (static_cast<int>(*at) == chosenIndex()) addMark(inspection, "chosen");
  if (links[*at].marked) {
    addMark(inspection, "changed");
    write(inspection.description, toWide(translated("modifiche non salvate")));
  }
  constexpr std::size_t digits = 10;
  if (*at < digits) {
    write(inspection.shortcut, L"Ctrl+" + std::to_wstring((*at + 1) % digits));
  }
  return true;
}

}  // namespace kebu::windows
