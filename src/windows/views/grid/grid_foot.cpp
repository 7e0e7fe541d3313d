#include "windows/views/grid/grid_foot.h"

#include <algorithm>
#include <utility>

#include "windows/support/text.h"
#include "windows/views/accessibility/stock_description.h"
#include "windows/views/drawing/edit_frame.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/window/common_controls.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

constexpr int boxWidth = 200;  // in 96ths of an inch
constexpr int margin = 8;
constexpr int stopMargin = 10;

}  // namespace

RECT GridFoot::bounds(const RECT& client) const {
  return {client.left, std::max(client.bottom - height(), client.top), client.right, client.bottom};
}

void GridFoot::open(HWND grid, const std::wstring& prompt, const std::wstring& text) {
  const CommonControls::Scope scope;
  prompt_ = prompt;
  if (!box_) {
    box_ = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | ES_AUTOHSCROLL, 0, 0, 0, 0, grid, nullptr,
                           module_, nullptr);
    if (!box_) return;
    setFont(box_, theme_->font(), false);
    frameEdit(box_, *theme_);
    describeStock(box_, L"EditBox", prompt_);
  }
  RECT client{};
  GetClientRect(grid, &client);
  layOut(client);
  ShowWindow(box_, SW_SHOWNA);
  SetFocus(box_);
  if (!text.empty()) {
    SetWindowTextW(box_, text.c_str());
    SendMessageW(box_, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
  } else {
    SendMessageW(box_, EM_SETSEL, 0, -1);
  }
}

void GridFoot::close() {
  if (HWND box = std::exchange(box_, nullptr)) DestroyWindow(box);
}

std::wstring GridFoot::entered() const {
  return box_ ? windowText(box_) : std::wstring();
}

void GridFoot::layOut(const RECT& client) {
  if (!box_) return;
  const RECT strip = bounds(client);
  const int before = theme_->metrics().textWidth(toUtf8(prompt_)) + theme_->px(2 * margin);
  const int left = static_cast<int>(strip.left) + before;
  const int room = static_cast<int>(strip.right) - left - theme_->px(margin);
  SetWindowPos(box_, nullptr, left, strip.top + 1, std::clamp(room, 0, theme_->px(boxWidth)),
               strip.bottom - strip.top - 2, SWP_NOZORDER | SWP_NOACTIVATE);
}

RECT GridFoot::stopBounds(const RECT& client, const std::wstring& stop) const {
  RECT button = bounds(client);
  InflateRect(&button, -theme_->px(2), -theme_->px(2));
  button.left =
      button.right - theme_->metrics().textWidth(toUtf8(stop)) - theme_->px(2 * stopMargin);
  return button;
}

void GridFoot::paint(HDC dc, const RECT& client, const std::wstring& status,
                     const std::wstring& stop) const {
  const Palette& colours = theme_->colours();
  const RECT strip = bounds(client);
  fill(dc, strip, colours.locked);
  fill(dc, {strip.left, strip.top, strip.right, strip.top + 1}, colours.border);
  RECT line = strip;
  line.left += theme_->px(margin);
  line.right -= theme_->px(margin);
  if (box_) {
    text(dc, prompt_, line, colours.muted, theme_->font(), DT_LEFT | DT_NOPREFIX);
    RECT box{};
    GetWindowRect(box_, &box);
    MapWindowPoints(nullptr, GetParent(box_), reinterpret_cast<POINT*>(&box), 2);
    line.left = box.right + theme_->px(margin);
  }
  if (!stop.empty()) {
    const RECT button = stopBounds(client, stop);
    card(dc, button, theme_->px(4), colours.card, colours.border);
    text(dc, stop, button, colours.text, theme_->font(), DT_CENTER | DT_NOPREFIX);
    line.right = button.left - theme_->px(margin);
  }
  text(dc, status, line, colours.muted, theme_->font(), DT_LEFT | DT_NOPREFIX);
}

void GridFoot::themeChanged() {
  setFont(box_, theme_->font());
  if (box_) frameEdit(box_, *theme_);
}

}  // namespace kebu::windows
