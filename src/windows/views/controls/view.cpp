#include "windows/views/controls/view.h"

#include "common/convert.h"
#include "common/error.h"
#include "windows/support/text.h"
#include "windows/views/accessibility/accessible_object.h"
#include "windows/views/layout/mnemonics.h"
#include "windows/views/window/attached_view.h"
#include "windows/views/window/dpi.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/subclass.h"

namespace kebu::windows {

namespace {

/// Describes a stock control to assistive technology, and lets its view paint it.
std::optional<LRESULT> answerForStock(View* view, const ControlMessage& received) {
  std::optional<LRESULT> answer;
  guarded([&] {
    if (received.message == WM_GETOBJECT) {
      const auto part = view->partIn(received.window);
      if (part) answer = answerGetObject(*view, *part, received.wParam, received.lParam);
    } else if (received.message == WM_PAINT) {
      if (view->paint(received.window)) answer = 0;
    } else if (received.message == WM_NCDESTROY) {
      attachedViews().remove(received.window);
    }
  });
  return answer;
}

using StockControl = Subclass<View*, answerForStock>;

}  // namespace

View::View(ViewSite& site, controls::Control& model, const char* kind)
    : site_(site),
      control_(model),
      kind_(kind),
      wasVisible_(model.isVisible()),
      lastCaption_(model.caption()),
      changes_(model.changed.connect([this] { modelChanged(); })) {}

void View::modelChanged() {
  const bool moved = control_.isVisible() != wasVisible_ || control_.caption() != lastCaption_;
  wasVisible_ = control_.isVisible();
  lastCaption_ = control_.caption();
  const DpiContext resolution = DpiContext::of(site_.window());
  guarded([&] { refresh(); });
  if (moved) site_.requestLayout();
}

void View::place(const layout::Placement& placement) {
  if (handle()) putWindow(handle(), placement.bounds);
}

void View::applyTheme() {
  setFont(handle(), theme().font());
  takeColours(handle(), theme());
}

void View::setMnemonic(std::size_t at) {
  if (mnemonic_ == at) return;
  mnemonic_ = at;
  refresh();
}

std::wstring View::markedCaption() const {
  return toWide(layout::withMnemonic(control_.caption(), mnemonic_));
}

COLORREF View::behind() const {
  const Palette& colours = theme().colours();
  return site_.isOnCard(control_) ? colours.card : colours.window;
}

DRAWITEMSTRUCT View::whileBusy(const DRAWITEMSTRUCT& item) const {
  DRAWITEMSTRUCT shown = item;
  if (site_.isBusy()) shown.itemState |= ODS_DISABLED;
  return shown;
}

HBRUSH View::setInk(HDC dc, COLORREF ink) const {
  SetTextColor(dc, ink);
  SetBkColor(dc, behind());
  return site_.isOnCard(control_) ? theme().cardBrush() : theme().windowBrush();
}

OwnedWindow View::createStock(const wchar_t* className, DWORD style, DWORD extendedStyle,
                              HWND parent, const layout::Rect& place, const std::wstring& text) {
  const DWORD shown = place.isEmpty() ? 0U : WS_VISIBLE;
  OwnedWindow window(CreateWindowExW(extendedStyle, className, text.c_str(),
                                     style | shown | WS_CHILD, place.left, place.top, place.width,
                                     place.height, parent, nullptr, site_.module(), nullptr));
  if (!window) throw RuntimeError(7, "The control could not be created.");
  setFont(window.get(), theme().font(), false);
  if (theme().colours().isSystems) takeColours(window.get(), theme());
  StockControl::putOn(window.get(), this);
  adopt(window.get());
  return window;
}

void View::adopt(HWND window) {
  attachedViews().put(window, this);
}

Describable* View::groupAround() {
  controls::Control* const group = control_.container();
  return group && site_.isOnCard(control_) ? site_.viewFor(*group) : nullptr;
}

std::string View::captionAround() const {
  for (const controls::Control* around = &control_; around; around = around->container()) {
    if (!around->spokenName().empty()) return around->spokenName();
    if (!around->caption().empty()) return around->caption();
  }
  return {};
}

bool View::inspect(Inspection& inspection) {
  write(inspection.kind, toWide(kind_));
  if (inspection.part != Inspected::Control) return describePart(inspection);
  writeName(inspection, control_.Name());
  describeWindow(inspection, handle());
  inspection.enabled = looksEnabled();
  inspection.visible = control_.isShown();
  describe(inspection);
  if (!control_.acceptsChanges()) addMark(inspection, "locked");
  if (control_.caption().empty() && !inspection.spoken[0]) {
    write(inspection.spoken, toWide(captionAround()));
  }
  if (!inspection.shortcut[0] && mnemonic_ < control_.caption().size()) {
    write(inspection.shortcut,
          L"Alt+" + toWide(toUpperAscii(control_.caption().substr(mnemonic_, 1))));
  }
  return true;
}

std::wstring View::tipOf(HWND window, POINT screen) {
  std::vector<std::wstring> lines;
  const std::wstring line = lineIn(window);
  RECT client{};
  GetClientRect(window, &client);
  if (theme().metrics().textWidth(toUtf8(line)) > client.right) lines.push_back(line);
  auto part = partIn(window);
  if (part == PartId{}) {
    POINT point = screen;
    ScreenToClient(window, &point);
    part = partAt(point);
  }
  if (part) {
    Inspection answer;
    answer.part = part->part;
    answer.row = part->row;
    answer.index = part->index;
    if (inspect(answer)) {
      // The button itself says nothing.
      if (part->part == Inspected::Lookup) lines.emplace_back(answer.spoken);
      for (const wchar_t* text : {answer.description, answer.shortcut}) {
        if (*text) lines.emplace_back(text);
      }
    }
  }
  std::wstring tip;
  for (const std::wstring& each : lines) tip += (tip.empty() ? L"" : L"\r\n") + each;
  return tip;
}

View* viewOf(HWND window) {
  for (; window; window = GetParent(window)) {
    if (const auto attached = attachedViews().find(window)) return *attached;
    if (!(GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD)) break;
  }
  return nullptr;
}

std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (View* const view = viewOf(reinterpret_cast<HWND>(lParam))) {
        view->command(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
        return 0;
      }
      break;
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (View* const view = viewOf(item.hwndItem)) {
        view->drawItem(item);
        return TRUE;
      }
      break;
    }
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORLISTBOX: {
      auto* const window = reinterpret_cast<HWND>(lParam);
      if (View* const view = viewOf(window)) {
        if (HBRUSH brush = view->colours(reinterpret_cast<HDC>(wParam), window)) {
          return reinterpret_cast<LRESULT>(brush);
        }
      }
      break;
    }
    default:
      break;
  }
  return std::nullopt;
}

}  // namespace kebu::windows
