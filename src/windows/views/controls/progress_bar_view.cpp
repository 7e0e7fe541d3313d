#include "windows/views/controls/progress_bar_view.h"

#include <algorithm>

#include "windows/support/text.h"
#include "windows/views/accessibility/accessible_object.h"
#include "windows/views/drawing/painting.h"

namespace kebu::windows {

namespace {

constexpr UINT_PTR ticking = 1;
constexpr UINT tickMilliseconds = 30;
constexpr ULONGLONG roundMilliseconds = 1800;

}  // namespace

ProgressBarView::ProgressBarView(ViewSite& site, controls::ProgressBar& model, HWND parent)
    : View(site, model, "ProgressBar"), model_(model) {
  create(site.module(), {L"kebu.progress", WS_CHILD | WS_CLIPSIBLINGS}, parent, {});
  adopt(Window::handle());
}

void ProgressBarView::place(const layout::Placement& placement) {
  // In the upper part of the page, centred.
  const layout::Rect& page = placement.bounds;
  const int width = std::min(theme().px(360), page.width);
  const int height = 2 * theme().metrics().lineHeight + theme().px(52);
  SetWindowPos(handle(), HWND_TOP, page.left + (page.width - width) / 2,
               page.top + (page.height - height) / 3, width, height, SWP_NOACTIVATE);
}

void ProgressBarView::refresh() {
  const bool visible = model_.isVisible();
  if (visible) {
    SetTimer(handle(), ticking, tickMilliseconds, nullptr);
  } else {
    KillTimer(handle(), ticking);
  }
  SetWindowPos(
      handle(), HWND_TOP, 0, 0, 0, 0,
      SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | (visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
  invalidate();
}

LRESULT ProgressBarView::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_GETOBJECT:
      if (const auto object = answerGetObject(*this, {}, wParam, lParam)) return *object;
      return Window::answer(message, wParam, lParam);
    case WM_TIMER:
      invalidate();
      return 0;
    case WM_PAINT:
      paint();
      return 0;
    default:
      return Window::answer(message, wParam, lParam);
  }
}

void ProgressBarView::paint() const {
  const BufferedPaint buffer(handle());
  const Palette& colours = theme().colours();
  RECT area = clientArea();
  fill(buffer.dc(), area, colours.window);
  card(buffer.dc(), area, theme().px(8), colours.card, colours.accent);
  InflateRect(&area, -theme().px(18), -theme().px(12));
  RECT words = area;
  words.bottom = words.top + theme().metrics().lineHeight + theme().px(4);
  if (model_.isInterruptible()) {
    const RECT button = interruptButton();
    card(buffer.dc(), button, theme().px(6), colours.card, colours.border);
    text(buffer.dc(), toWide(model_.interruptCaption()), button, colours.text, theme().font(),
         DT_CENTER | DT_NOPREFIX);
    words.right = button.left - theme().px(8);
  }
  text(buffer.dc(), toWide(model_.text()), words, colours.text, theme().font(), DT_NOPREFIX);
  OffsetRect(&words, 0, theme().metrics().lineHeight + theme().px(4));
  text(buffer.dc(), toWide(model_.detail()), words, colours.muted, theme().font(), DT_NOPREFIX);
  RECT track = area;
  track.top = area.bottom - theme().px(6);
  fill(buffer.dc(), track, colours.line);
  if (!model_.isRunning()) return;
  const LONG room = track.right - track.left;
  if (const auto percent = model_.percent()) {
    track.right = track.left + MulDiv(room, *percent, 100);
    fill(buffer.dc(), track, colours.accent);
    return;
  }
  const LONG piece = room / 3;
  const auto way = static_cast<LONG>(GetTickCount64() % roundMilliseconds);
  const LONG from =
      track.left - piece + MulDiv(room + piece, way, static_cast<int>(roundMilliseconds));
  const RECT moving{std::max(from, track.left), track.top, std::min(from + piece, track.right),
                    track.bottom};
  fill(buffer.dc(), moving, colours.accent);
}

RECT ProgressBarView::interruptButton() const {
  RECT button = clientArea();
  InflateRect(&button, -theme().px(18), -theme().px(10));
  const std::string& caption = model_.interruptCaption();
  button.left = button.right - theme().metrics().textWidth(caption) - theme().px(20);
  button.bottom = button.top + theme().metrics().lineHeight + theme().px(10);
  return button;
}

bool ProgressBarView::isOnInterruptButton(POINT point) const {
  const RECT button = interruptButton();
  return model_.isInterruptible() && PtInRect(&button, point) != 0;
}

void ProgressBarView::describe(Inspection& inspection) {
  writeText(inspection, model_.text());
  if (model_.isRunning()) addMark(inspection, "running");
}

}  // namespace kebu::windows
