#include "windows/views/controls/view.h"

#include "common/convert.h"
#include "common/error.h"
#include "windows/support/text.h"
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
  guarded([&] { refresh(); });
  if (moved) site_.requestLayout();
}

void View::place(const layout::Placement& placement) {
  if (handle()) putWindow(handle(), placement.bounds);
}

void View::command(HWND /*from*/, UINT /*code*/) {}

void View::drawItem(const DRAWITEMSTRUCT& /*item*/) {}

HBRUSH View::colours(HDC /*dc*/, HWND /*window*/) {
  return nullptr;
}

std::function<void()> View::actionFor(const Key& /*key*/) {
  return {};
}

void View::setMnemonic(std::size_t /*at*/) {}

void View::reachByMnemonic() {
  if (handle()) SetFocus(handle());
}

bool View::looksEnabled() const {
  return control_.looksEnabled();
}

COLORREF View::behind() const {
  const Palette& colours = theme().colours();
  return site_.isOnCard(control_) ? colours.card : colours.window;
}

HBRUSH View::behindBrush() const {
  return site_.isOnCard(control_) ? theme().cardBrush() : theme().windowBrush();
}

OwnedWindow View::createStock(const wchar_t* className, DWORD style, DWORD extendedStyle,
                              HWND parent) {
  OwnedWindow window(CreateWindowExW(extendedStyle, className, L"", style | WS_CHILD, 0, 0, 0, 0,
                                     parent, nullptr, site_.module(), nullptr));
  if (!window) throw RuntimeError(7, "The control could not be created.");
  SendMessageW(window.get(), WM_SETFONT, reinterpret_cast<WPARAM>(theme().font()), FALSE);
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
  return true;
}

void View::describe(Inspection& inspection) {
  writeText(inspection, control_.caption());
}

bool View::describePart(Inspection& /*inspection*/) {
  return false;
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

void moveWindow(HWND window, const layout::Rect& place) {
  RECT now{};
  GetWindowRect(window, &now);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&now), 2);
  const bool same = now.left == place.left && now.top == place.top && now.right == place.right() &&
                    now.bottom == place.bottom();
  if (same) return;
  // Drawn anew: controls that change places pass over each other's pixels.
  SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void putWindow(HWND window, const layout::Rect& place) {
  moveWindow(window, place);
  ShowWindow(window, place.isEmpty() ? SW_HIDE : SW_SHOWNA);
}

std::optional<std::size_t> itemAsked(
    Inspection& inspection, std::size_t count,
    const std::function<bool(std::size_t index, const std::string& key)>& hasKey) {
  if (inspection.part != Inspected::Item) return std::nullopt;
  auto index = static_cast<std::size_t>(inspection.index);
  const std::string key = toUtf8(inspection.key);
  if (!key.empty()) {
    index = 0;
    while (index < count && !hasKey(index, key)) ++index;
  }
  if (index >= count) return std::nullopt;
  inspection.index = static_cast<std::int32_t>(index);
  return index;
}

void writeName(Inspection& inspection, const std::string& name) {
  write(inspection.name, toWide(name));
}

void writeText(Inspection& inspection, const std::string& text) {
  write(inspection.text, toWide(text));
}

void addMark(Inspection& inspection, const char* mark) {
  std::wstring marks = inspection.marks;
  if (!marks.empty()) marks += L' ';
  write(inspection.marks, marks + toWide(mark));
}

void describeWindow(Inspection& inspection, HWND window) {
  inspection.window = window;
  if (!window) return;
  if (IsWindowVisible(window)) GetClientRect(window, &inspection.bounds);
  inspection.enabled = IsWindowEnabled(window);
  inspection.visible = IsWindowVisible(window);
}

}  // namespace kebu::windows
