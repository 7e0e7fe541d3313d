#include "windows/views/controls/view.h"

#include "common/convert.h"
#include "common/error.h"
#include "windows/support/text.h"
#include "windows/views/layout/mnemonics.h"
#include "windows/views/window/dpi.h"
#include "windows/views/window/guard.h"

namespace kebu::windows {

namespace {

constexpr const wchar_t* viewProperty = L"kebu.view";

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

HBRUSH View::setInk(HDC dc, COLORREF ink) const {
  SetTextColor(dc, ink);
  SetBkColor(dc, behind());
  return site_.isOnCard(control_) ? theme().cardBrush() : theme().windowBrush();
}

OwnedWindow View::createStock(const wchar_t* className, DWORD style, DWORD extendedStyle,
                              HWND parent) {
  OwnedWindow window(CreateWindowExW(extendedStyle, className, L"", style | WS_CHILD, 0, 0, 0, 0,
                                     parent, nullptr, site_.module(), nullptr));
  if (!window) throw RuntimeError(7, "The control could not be created.");
  setFont(window.get(), theme().font(), false);
  if (theme().colours().isSystems) takeColours(window.get(), theme());
  adopt(window.get());
  return window;
}

void View::adopt(HWND window) {
  SetPropW(window, viewProperty, this);
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
  return true;
}

View* viewOf(HWND window) {
  for (; window; window = GetParent(window)) {
    if (HANDLE view = GetPropW(window, viewProperty)) return static_cast<View*>(view);
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
