// The part of FormWindow that moves the focus and answers keys.

#include "common/convert.h"
#include "controls/query_grid.h"
#include "controls/sheet.h"
#include "windows/support/text.h"
#include "windows/views/controls/navigator_bar_view.h"
#include "windows/views/controls/side_bar_view.h"
#include "windows/views/form/form_window.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/user_guide.h"

namespace kebu::windows {

namespace {

/// The key as a button has it: "F11", "Ctrl+C"; "" for one that no button can have.
std::string buttonKeyOf(const Key& key) {
  const bool isLetter = key.code >= 'A' && key.code <= 'Z';
  if (key.control && !key.shift && isLetter) {
    return "Ctrl+" + std::string(1, static_cast<char>(key.code));
  }
  const bool isFunctionKey = key.code >= VK_F1 && key.code <= VK_F12;
  if (!isFunctionKey || !key.isPlain(key.code)) return "";
  return "F" + std::to_string(key.code - VK_F1 + 1);
}

}  // namespace

bool FormWindow::commit() {
  View* const view = viewOf(GetFocus());
  return !view || !find(view->control()) || view->commit();
}

void FormWindow::focusWanted() {
  if (layoutWanted_) layOut();
  View* const view = form_.focusWanted() ? find(*form_.focusWanted()) : nullptr;
  if (!view || !view->handle() || !IsWindowVisible(view->handle())) return;
  SetFocus(view->handle());
  focusMoved();
}

void FormWindow::focusFirst() {
  // Work begins at the bar when nothing is there yet, else at the page's first field that can be
  // edited.
  for (View* view : inOrder_) {
    auto* const bar = dynamic_cast<NavigatorBarView*>(view);
    if (bar && bar->control().isShown() && bar->focusButton("Nuovo")) return;
  }
  for (View* view : inOrder_) {
    const auto* const box = controls::as<controls::EditBox>(view->control());
    const bool isField = controls::as<controls::BoundControl>(view->control()) ||
                         controls::as<controls::QueryGrid>(view->control()) ||
                         controls::as<controls::Sheet>(view->control());
    if (!isField || (box && !box->isEditable()) || !view->control().acceptsChanges()) continue;
    if (!IsWindowVisible(view->handle()) || !IsWindowEnabled(view->handle())) continue;
    SetFocus(view->handle());
    return;
  }
  HWND around = loosePage_ ? loosePage_->handle() : nullptr;
  if (const PageWindow* const page = pageInFront()) around = page->handle();
  HWND first = around ? GetNextDlgTabItem(around, nullptr, FALSE) : nullptr;
  if (!first) first = GetNextDlgTabItem(handle(), nullptr, FALSE);
  SetFocus(first ? first : handle());
}

void FormWindow::moveFocus(bool back) {
  if (!commit()) return;
  HWND next = GetNextDlgTabItem(handle(), GetFocus(), back);
  if (next) SetFocus(next);
  focusMoved();
}

// Enter goes from field to field; it never comes to a button of a bar, which a second Enter would
// press.
void FormWindow::moveToNextField() {
  if (!commit()) return;
  HWND next = GetFocus();
  for (std::size_t tries = 0; tries <= inOrder_.size() + 16; ++tries) {
    next = GetNextDlgTabItem(handle(), next, FALSE);
    const View* const view = viewOf(next);
    if (!view || !isBesidePages(view->control())) break;
  }
  if (next) SetFocus(next);
  focusMoved();
}

void FormWindow::focusMoved() {
  HWND focus = GetFocus();
  if (PageWindow* const page = pageInFront()) page->reveal(focus);
  if (loosePage_) loosePage_->reveal(focus);
}

void FormWindow::keepFocusAlive() {
  HWND focus = GetFocus();
  if (!IsChild(handle(), focus) || (IsWindowEnabled(focus) && IsWindowVisible(focus))) return;
  focusFirst();
}

std::function<void()> FormWindow::mnemonicAction(char letter) {
  const auto at = mnemonics_.find(letter);
  return at == mnemonics_.end() ? std::function<void()>() : at->second;
}

std::function<void()> FormWindow::actionFor(const Key& key) {
  if (!IsWindowEnabled(handle())) return {};
  if (key.mnemonic && key.code == VK_RETURN) {
    View* const view = viewOf(GetFocus());
    return view ? view->actionFor(key) : std::function<void()>();
  }
  if (key.mnemonic) {
    const bool isAscii = key.code > ' ' && key.code < 128;
    return isAscii
               ? mnemonicAction(toUpperAscii(std::string(1, static_cast<char>(key.code))).front())
               : std::function<void()>();
  }
  View* const focused = viewOf(GetFocus());
  if (focused) {
    if (auto action = focused->actionFor(key)) return action;
  }
  const bool isDefaultKey = key.isPlain(VK_RETURN) || key.isPlain(VK_F10);
  controls::Button* const button =
      isDefaultKey ? form_.defaultButton() : form_.buttonOfKey(buttonKeyOf(key));
  if (button) {
    return [this, button] {
      if (commit()) guarded([&] { button->click(); });
    };
  }
  if (key.code == VK_TAB && !key.control) return [this, back = key.shift] { moveFocus(back); };
  if (key.isPlain(VK_RETURN)) return [this] { moveToNextField(); };
  if (key.isPlain(VK_F1)) return [this] { showGuide(); };
  if (key.code == VK_F1 && key.control && !key.shift) {
    return [this] {
      if (commit()) guarded([&] { form_.showKeys(); });
    };
  }
  if (key.isPlain(VK_F5)) {
    return [this] {
      if (commit()) guarded([&] { form_.refreshPage(); });
    };
  }
  if (key.isPlain(VK_ESCAPE) && modal_) {
    return [this] { PostMessageW(handle(), WM_CLOSE, 0, 0); };
  }
  const bool pageKey = key.code == VK_NEXT || key.code == VK_PRIOR;
  for (View* view : inOrder_) {
    if (!view->control().isShown()) continue;
    if (auto* const links = dynamic_cast<SideBarView*>(view);
        links && pageKey && key.control && !key.shift) {
      return [links, down = key.code == VK_NEXT] { links->step(down ? 1 : -1); };
    }
    const bool isDigit = key.code >= '0' && key.code <= '9' && key.control && !key.shift;
    if (auto* const links = dynamic_cast<SideBarView*>(view); links && isDigit) {
      return [links, index = key.code == '0' ? 9U : static_cast<std::size_t>(key.code - '1')] {
        links->openAt(index);
      };
    }
    if (auto* const bar = dynamic_cast<NavigatorBarView*>(view); bar && bar != focused) {
      if (auto action = bar->actionFor(key)) return action;
    }
  }
  return {};
}

void FormWindow::showGuide() {
  const auto file = userGuideFile(toWide(form_.guidePage()));
  if (file && openUserGuide(handle(), *file)) return;
  guarded([&] { form_.showKeys(); });
}

}  // namespace kebu::windows
