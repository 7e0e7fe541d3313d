#include "windows/views/form/page_window.h"

#include <algorithm>

#include "windows/support/text.h"
#include "windows/views/accessibility/accessible_object.h"
#include "windows/views/controls/combo_box_view.h"
#include "windows/views/controls/view.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/window/dpi.h"

namespace kebu::windows {

PageWindow::PageWindow(ViewSite& site, HWND parent) : site_(site), theme_(site.theme()) {
  create(site.module(),
         {L"kebu.page", WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT}, parent,
         {});
  if (theme_.colours().isSystems) takeColours(handle(), theme_);
}

void PageWindow::arrange(const layout::Rect& place,
                         const std::vector<controls::ResizeManager::Registration>& rules) {
  rules_ = rules;
  moveWindow(handle(), place);
  layOut();
}

void PageWindow::layOut() {
  layout::PageLayout layout(theme_.metrics(), rules_);
  RECT window{};
  GetWindowRect(handle(), &window);
  const int full = static_cast<int>(window.right - window.left);
  const int seen = static_cast<int>(window.bottom - window.top);
  const int bar = systemMetric(SM_CXVSCROLL, theme_.dpi());
  height_ = layout.naturalHeight(controls, full);
  const bool scrolls = height_ > seen;
  const int width = scrolls ? full - bar - theme_.px(6) : full;
  if (scrolls) height_ = layout.naturalHeight(controls, width);
  height_ = std::max(height_, seen);
  offset_ = std::clamp(offset_, 0, height_ - seen);
  if (scrolls) setScrollBar(SB_VERT, {0, height_ - 1, seen, offset_});
  ShowScrollBar(handle(), SB_VERT, scrolls);

  layout::Placements placements = layout.place(controls, {0, -offset_, width, height_});
  cards_.clear();
  placeAll(controls, placements);
  InvalidateRect(handle(), nullptr, TRUE);
}

void PageWindow::placeAll(const std::vector<controls::Control*>& all,
                          layout::Placements& placements) {
  for (controls::Control* control : all) {
    const layout::Placement placement = placements[control];
    if (View* const view = site_.viewAt(*control, placement)) view->place(placement);
    if (auto* group = controls::as<controls::GroupBox>(*control)) {
      if (!placement.bounds.isEmpty()) {
        cards_.push_back({placement.bounds, group->caption(), group->looksEnabled()});
      }
      placeAll(group->children(), placements);
    }
  }
}

void PageWindow::scrollTo(int offset) {
  RECT window{};
  GetWindowRect(handle(), &window);
  const int before = offset_;
  offset_ =
      std::clamp(offset, 0, std::max(height_ - static_cast<int>(window.bottom - window.top), 0));
  if (offset_ == before) return;
  // All controls move at once, with what they show.
  ScrollWindowEx(handle(), 0, before - offset_, nullptr, nullptr, nullptr, nullptr,
                 SW_SCROLLCHILDREN | SW_INVALIDATE);
  layOut();
  RedrawWindow(handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void PageWindow::reveal(HWND control) {
  if (!IsChild(handle(), control)) return;
  RECT bounds{};
  GetWindowRect(control, &bounds);
  MapWindowPoints(nullptr, handle(), reinterpret_cast<POINT*>(&bounds), 2);
  const RECT area = clientArea();
  const int edge = theme_.px(16);
  if (bounds.bottom - bounds.top + edge > area.bottom) return;
  if (bounds.top < edge && offset_ > 0) {
    scrollTo(offset_ + static_cast<int>(bounds.top) - edge);
  } else if (bounds.bottom > area.bottom - edge) {
    scrollTo(offset_ + static_cast<int>(bounds.bottom - area.bottom) + edge);
  }
}

void PageWindow::paint() {
  const BufferedPaint buffer(handle());
  const Palette& colours = theme_.colours();
  fill(buffer.dc(), clientArea(), colours.window);
  for (const Card& each : cards_) {
    RECT area = toRECT(each.bounds);
    card(buffer.dc(), area, theme_.px(8), colours.card, colours.border);
    area.left += theme_.px(14);
    area.right -= theme_.px(14);
    area.top += theme_.px(10);
    area.bottom = area.top + theme_.metrics().lineHeight + theme_.px(4);
    text(buffer.dc(), toWide(each.title), area, each.enabled ? colours.text : colours.faint,
         theme_.strong(), DT_NOPREFIX);
  }
}

bool PageWindow::inspect(Inspection& inspection) {
  if (inspection.part != Inspected::Control) return false;
  describeWindow(inspection, handle());
  write(inspection.kind, std::wstring(L"Page"));
  return true;
}

std::vector<Describable*> PageWindow::members() {
  std::vector<Describable*> shown;
  for (const controls::Control* control : controls) {
    View* const view = control->isVisible() ? site_.viewFor(*control) : nullptr;
    if (view && view->describedWindow()) shown.push_back(view);
  }
  return shown;
}

LRESULT PageWindow::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto reflected = reflect(message, wParam, lParam)) return *reflected;
  switch (message) {
    case WM_GETOBJECT:
      if (const auto object = answerGetObject(*this, {}, wParam, lParam)) return *object;
      return Window::answer(message, wParam, lParam);
    case WM_MEASUREITEM: {
      auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
      const bool isChosen = item.itemID == static_cast<UINT>(-1);
      item.itemHeight = static_cast<UINT>(ComboBoxView::rowHeight(theme_, isChosen));
      return TRUE;
    }
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint();
      return 0;
    case WM_VSCROLL:
      if (const auto to = scrolled(SB_VERT, wParam, theme_.px(30))) scrollTo(*to);
      return 0;
    case WM_MOUSEWHEEL:
      if (GetWindowLongPtrW(handle(), GWL_STYLE) & WS_VSCROLL) {
        scrollTo(offset_ - static_cast<short>(HIWORD(wParam)) * theme_.px(60) / WHEEL_DELTA);
      }
      return 0;
    default:
      return Window::answer(message, wParam, lParam);
  }
}

}  // namespace kebu::windows
