#include "windows/views/controls/notice_list_view.h"

#include "windows/support/text.h"
#include "windows/views/accessibility/accessible_object.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/drawing/push_button.h"
#include "windows/views/layout/notice_layout.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

NoticeListView::NoticeListView(ViewSite& site, controls::NoticeList& model, HWND parent)
    : View(site, model, "NoticeList"), model_(model) {
  create(site.module(), {L"kebu.notices", WS_CHILD, WS_EX_CONTROLPARENT}, parent, {});
  adopt(handle());
}

NoticeListView::~NoticeListView() = default;

void NoticeListView::place(const layout::Placement& placement) {
  View::place(placement);
  arrange();
}

void NoticeListView::arrange() {
  const auto layout =
      layout::placeNotices(model_, theme().metrics(), static_cast<int>(clientArea().right));
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const bool isUsed = i < layout.lines.size();
    putWindow(lines_[i].text.get(), isUsed ? layout.lines[i].text : layout::Rect{});
    putWindow(lines_[i].button.get(), isUsed ? layout.lines[i].button : layout::Rect{});
  }
  invalidate();
}

void NoticeListView::refresh() {
  const auto& notices = model_.notices();
  while (lines_.size() < notices.size()) {
    Line line{createStock(L"STATIC", SS_LEFT | SS_NOPREFIX, 0, handle()),
              createStock(L"BUTTON", WS_TABSTOP | BS_OWNERDRAW, 0, handle())};
    lines_.push_back(std::move(line));
  }
  for (std::size_t i = 0; i < notices.size(); ++i) {
    setWindowText(lines_[i].text.get(), toWide(notices[i].text));
    setWindowText(lines_[i].button.get(), toWide(notices[i].action));
  }
  // A button that goes must not keep the focus.
  const auto focused = indexOf(GetFocus());
  if (focused && (*focused >= notices.size() || notices[*focused].action.empty())) {
    SetFocus(GetParent(handle()));
  }
  arrange();
  if (told_ == model_.caption()) return;
  told_ = model_.caption();
  for (std::size_t i = 0; i < notices.size(); ++i) {
    NotifyWinEvent(EVENT_SYSTEM_ALERT, lines_[i].text.get(), OBJID_CLIENT, CHILDID_SELF);
  }
}

void NoticeListView::applyTheme() {
  for (const Line& line : lines_) {
    for (HWND window : {line.text.get(), line.button.get()}) {
      SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(theme().font()), TRUE);
    }
  }
}

LRESULT NoticeListView::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return 1;
  if (message == WM_PAINT) {
    paint();
    return 0;
  }
  if (message == WM_GETOBJECT) {
    if (const auto object = answerGetObject(*this, {}, wParam, lParam)) return *object;
  }
  if (const auto reflected = reflect(message, wParam, lParam)) return *reflected;
  return Window::answer(message, wParam, lParam);
}

void NoticeListView::paint() {
  const BufferedPaint painting(handle());
  const Palette& colours = theme().colours();
  fill(painting.dc(), clientArea(), colours.window);
  const auto layout =
      layout::placeNotices(model_, theme().metrics(), static_cast<int>(clientArea().right));
  for (const layout::NoticeLine& line : layout.lines) {
    RECT area = toRECT(line.bounds);
    fill(painting.dc(), area, colours.card);
    frame(painting.dc(), area, colours.border);
    area.right = area.left + theme().px(4);
    fill(painting.dc(), area, colours.warning);
  }
}

HBRUSH NoticeListView::colours(HDC dc, HWND /*window*/) {
  SetTextColor(dc, theme().colours().text);
  SetBkColor(dc, theme().colours().card);
  return theme().cardBrush();
}

std::optional<PartId> NoticeListView::partIn(HWND window) const {
  const auto index = indexOf(window);
  if (!index) return View::partIn(window);
  return PartId{Inspected::Item, 0, static_cast<std::int32_t>(*index)};
}

std::optional<std::size_t> NoticeListView::indexOf(HWND button) const {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (button && lines_[i].button.get() == button) return i;
  }
  return std::nullopt;
}

void NoticeListView::press(std::size_t index) {
  if (site().commit()) guarded([&] { model_.press(index); });
}

void NoticeListView::command(HWND from, UINT code) {
  if (code != BN_CLICKED) return;
  if (const auto index = indexOf(from)) press(*index);
}

std::function<void()> NoticeListView::actionFor(const Key& key) {
  const auto index = indexOf(GetFocus());
  if (!index || !key.isPlain(VK_RETURN)) return {};
  return [this, index] { press(*index); };
}

void NoticeListView::drawItem(const DRAWITEMSTRUCT& item) {
  drawPushButton(item, theme(),
                 {windowText(item.hwndItem),
                  {},
                  false,
                  theme().colours().card,
                  site().hovered() == item.hwndItem});
}

void NoticeListView::describe(Inspection& inspection) {
  View::describe(inspection);
  inspection.count = static_cast<std::int32_t>(model_.notices().size());
  write(inspection.spoken, toWide(translated("Avvisi")));
}

bool NoticeListView::describePart(Inspection& inspection) {
  const auto& notices = model_.notices();
  const auto at = itemAsked(inspection, notices.size(), [&](std::size_t i, const std::string& key) {
    return notices[i].cause == key;
  });
  if (!at || *at >= lines_.size()) return false;
  const Line& line = lines_[*at];
  const bool acts = !notices[*at].action.empty();
  describeWindow(inspection, acts ? line.button.get() : line.text.get());
  writeName(inspection, notices[*at].action);
  writeText(inspection, toUtf8(windowText(line.text.get())));
  write(inspection.spoken, toWide(acts ? notices[*at].action : notices[*at].text));
  if (acts) write(inspection.description, toWide(notices[*at].text));
  return true;
}

}  // namespace kebu::windows
