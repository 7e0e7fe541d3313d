#include "windows/views/window/pointer_watch.h"

#include <commctrl.h>

#include "windows/views/window/common_controls.h"

namespace kebu::windows {

namespace {

constexpr UINT interval = 100;  // milliseconds
constexpr int restTicks = 5;
constexpr int tipTicks = 80;   // then it disappears
constexpr int tipWidth = 480;  // in pixels, at most
constexpr int belowPointer = 20;

HWND controlAt(HWND from, POINT screen) {
  // A label lets the pointer through to its parent, and so does a disabled control.
  POINT point = screen;
  ScreenToClient(from, &point);
  HWND const child = ChildWindowFromPointEx(from, point, CWP_SKIPINVISIBLE);
  return child ? child : from;
}

TTTOOLINFOW toolOf(HWND window) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_TRACK | TTF_ABSOLUTE;
  tool.hwnd = window;
  return tool;
}

}  // namespace

PointerWatch::~PointerWatch() {
  if (tip_ && IsWindow(tip_)) DestroyWindow(tip_);
}

void PointerWatch::pointerMoved(HWND from) {
  if (!place_.moved()) return;
  POINT screen{};
  GetCursorPos(&screen);
  setControl(controlAt(from, screen));
  rested_ = 0;
  hideTip();
}

void PointerWatch::setControl(HWND control) {
  if (control == control_) return;
  for (HWND each : {control_, control}) {
    if (each && each != window_) InvalidateRect(each, nullptr, FALSE);
  }
  control_ = control;
  if (control_) {
    SetTimer(window_, timer, interval, nullptr);
  } else {
    KillTimer(window_, timer);
  }
}

void PointerWatch::tick() {
  POINT screen{};
  GetCursorPos(&screen);
  HWND const under = WindowFromPoint(screen);
  if (under != window_ && !IsChild(window_, under)) {
    hideTip();
    setControl(nullptr);
    return;
  }
  ++rested_;
  if (rested_ == restTicks) showTip(screen);
  if (rested_ == restTicks + tipTicks) hideTip();
}

void PointerWatch::showTip(POINT screen) {
  text_ = control_ ? tipOf_(control_, screen) : std::wstring();
  if (text_.empty()) return;
  TTTOOLINFOW tool = toolOf(window_);
  tool.lpszText = text_.data();
  if (!tip_) {
    const CommonControls::Scope scope;
    tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0,
                           0, 0, window_, nullptr, nullptr, nullptr);
    if (!tip_) return;
    SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, tipWidth);
  }
  SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(tip_, TTM_TRACKPOSITION, 0, MAKELPARAM(screen.x, screen.y + belowPointer));
  SendMessageW(tip_, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
  shown_ = true;
}

void PointerWatch::hideTip() {
  if (!std::exchange(shown_, false)) return;
  TTTOOLINFOW tool = toolOf(window_);
  SendMessageW(tip_, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace kebu::windows
