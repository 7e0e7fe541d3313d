#include "windows/views/controls/navigator_bar_view.h"

#include <algorithm>

#include "windows/support/text.h"
#include "windows/views/accessibility/accessible_object.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/drawing/push_button.h"
#include "windows/views/layout/mnemonics.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

/// The virtual key of a function key by its name, such as "F10"; 0 for none.
WPARAM virtualKey(std::string_view name) {
  WPARAM number = 0;
  for (const char digit : name.substr(name.empty() ? 0 : 1)) {
    number = number * 10 + static_cast<WPARAM>(digit - '0');
  }
  return number == 0 ? 0 : VK_F1 + number - 1;
}

constexpr DWORD buttonStyle = WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW;
constexpr int changesWidth = 26;  // in 96ths of an inch

}  // namespace

NavigatorBarView::NavigatorBarView(ViewSite& site, controls::NavigatorBar& model, HWND parent)
    : View(site, model, "NavigatorBar"),
      model_(model),
      mnemonics_(model.buttons().size(), std::string::npos) {
  create(site.module(), {L"kebu.navigator", WS_CHILD, WS_EX_CONTROLPARENT}, parent, {});
  adopt(handle());
  for (std::size_t i = 0; i < model.buttons().size(); ++i) {
    buttons_.push_back(createStock(L"BUTTON", buttonStyle, 0, handle()));
    if (!model.showsChanges() || model.buttons()[i].key != controls::confirmButton) continue;
    changesButton_ = createStock(L"BUTTON", buttonStyle, 0, handle());
  }
}

void NavigatorBarView::place(const layout::Placement& placement) {
  View::place(placement);
  arrange();
}

void NavigatorBarView::arrange() {
  const RECT area = clientArea();
  int left = 0;
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const controls::NavigatorBar::Button& button = model_.buttons()[i];
    const int text = theme().metrics().textWidth(button.caption);
    const int key = controls::functionKeyOf(button.key).empty() ? 0 : theme().px(34);
    const int width = std::max(text + key + theme().px(28), theme().px(96));
    moveWindow(buttons_[i].get(), {left, 0, width, static_cast<int>(area.bottom)});
    left += width;
    if (changesButton_ && button.key == controls::confirmButton) {
      const int arrow = theme().px(changesWidth);
      moveWindow(changesButton_.get(),
                 {left + theme().px(2), 0, arrow, static_cast<int>(area.bottom)});
      left += theme().px(2) + arrow;
    }
    left += theme().px(8);
  }
}

void NavigatorBarView::refresh() {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const controls::NavigatorBar::Button& button = model_.buttons()[i];
    setWindowText(buttons_[i].get(), toWide(layout::withMnemonic(button.caption, mnemonics_[i])));
    EnableWindow(buttons_[i].get(), looksEnabled() && button.enabled);
    if (changesButton_ && button.key == controls::confirmButton) {
      setWindowText(changesButton_.get(), toWide(model_.changesCaption()));
      EnableWindow(changesButton_.get(), looksEnabled() && button.enabled);
    }
  }
}

void NavigatorBarView::applyTheme() {
  for (const OwnedWindow& button : buttons_) setFont(button.get(), theme().font());
}

LRESULT NavigatorBarView::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) {
    fill(reinterpret_cast<HDC>(wParam), clientArea(), theme().colours().window);
    return 1;
  }
  if (message == WM_GETOBJECT) {
    if (const auto object = answerGetObject(*this, {}, wParam, lParam)) return *object;
  }
  if (const auto reflected = reflect(message, wParam, lParam)) return *reflected;
  return Window::answer(message, wParam, lParam);
}

std::optional<std::size_t> NavigatorBarView::indexOf(HWND window) const {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    if (buttons_[i].get() == window) return i;
  }
  return std::nullopt;
}

void NavigatorBarView::command(HWND from, UINT code) {
  if (code != BN_CLICKED) return;
  if (changesButton_ && from == changesButton_.get()) {
    askChanges();
    return;
  }
  if (const auto index = indexOf(from)) press(*index);
}

bool NavigatorBarView::focusButton(const std::string& key) {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    if (model_.buttons()[i].key != key || !IsWindowEnabled(buttons_[i].get())) continue;
    SetFocus(buttons_[i].get());
    return true;
  }
  return false;
}

void NavigatorBarView::press(std::size_t index) {
  if (!site().commit()) return;
  const std::string key = model_.buttons().at(index).key;
  guarded([&] { model_.press(key); });
}

void NavigatorBarView::askChanges() {
  if (site().commit()) guarded([&] { model_.askChanges(); });
}

void NavigatorBarView::drawItem(const DRAWITEMSTRUCT& item) {
  const DRAWITEMSTRUCT shown = whileBusy(item);
  const COLORREF behind = theme().colours().window;
  if (changesButton_ && item.hwndItem == changesButton_.get()) {
    drawPushButton(shown, theme(), {.behind = behind, .pointsDown = true});
  } else if (const auto index = indexOf(item.hwndItem)) {
    const auto& button = model_.buttons()[*index];
    drawPushButton(
        shown, theme(),
        {windowText(item.hwndItem), toWide(std::string(controls::functionKeyOf(button.key))),
         button.key == "Conferma", behind, site().hovered() == item.hwndItem});
  }
}

std::function<void()> NavigatorBarView::actionFor(const Key& key) {
  const bool asksChanges = (key.code == VK_F10 && key.control && !key.shift && !key.mnemonic) ||
                           (key.isPlain(VK_RETURN) && GetFocus() == changesButton_.get());
  if (changesButton_ && asksChanges) return [this] { askChanges(); };
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const WPARAM wanted = virtualKey(controls::functionKeyOf(model_.buttons()[i].key));
    const bool isMeant = (wanted != 0 && key.isPlain(wanted)) ||
                         (key.isPlain(VK_RETURN) && GetFocus() == buttons_[i].get());
    if (isMeant) return [this, i] { press(i); };
  }
  return {};
}

std::vector<std::string> NavigatorBarView::captions() const {
  std::vector<std::string> all;
  for (const auto& button : model_.buttons()) all.push_back(button.caption);
  return all;
}

void NavigatorBarView::setMnemonics(const std::vector<std::size_t>& letters) {
  mnemonics_ = letters;
  refresh();
}

std::optional<PartId> NavigatorBarView::partIn(HWND window) const {
  const auto index = indexOf(window);
  if (!index) return View::partIn(window);
  return PartId{Inspected::Item, 0, static_cast<std::int32_t>(*index)};
}

void NavigatorBarView::describe(Inspection& inspection) {
  View::describe(inspection);
  write(inspection.spoken, toWide(translated("Comandi")));
  inspection.count = static_cast<std::int32_t>(buttons_.size());
}

bool NavigatorBarView::describePart(Inspection& inspection) {
  if (inspection.part == Inspected::Lookup && changesButton_) {
    describeWindow(inspection, changesButton_.get());
    return true;
  }
  const auto& all = model_.buttons();
  const auto at = itemAsked(inspection, all.size(), [&](std::size_t i, const std::string& key) {
    return all[i].key == key || all[i].caption == key;
  });
  if (!at) return false;
  describeWindow(inspection, buttons_[*at].get());
  inspection.enabled = all[*at].enabled;  // whether or not the bar is enabled
  writeName(inspection, all[*at].key);
  writeText(inspection, all[*at].caption);
  write(inspection.shortcut, toWide(std::string(controls::functionKeyOf(all[*at].key))));
  return true;
}

}  // namespace kebu::windows
