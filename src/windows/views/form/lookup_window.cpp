#include "windows/views/form/lookup_window.h"

#include <algorithm>

#include "windows/support/text.h"
#include "windows/views/accessibility/stock_description.h"
#include "windows/views/drawing/edit_frame.h"
#include "windows/views/drawing/push_button.h"
#include "windows/views/window/dpi.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/inspection_answer.h"
#include "windows/views/window/window_place.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

constexpr int usualHeight = 460;  // in 96ths of an inch
constexpr int widestColumn = 320;
constexpr int widestLastColumn = 560;
constexpr int measuredRows = 200;  // at most, for the widths of the columns

}  // namespace

LookupWindow::LookupWindow(HINSTANCE module, controls::LookupList& list, HWND owner,
                           std::function<void()> help)
    : module_(module), list_(list), theme_(dpiOf(owner)), help_(std::move(help)) {
  int width = 40;
  for (std::size_t i = 0; i < list.captions().size(); ++i) {
    int widest = theme_.metrics().textWidth(list.captions()[i]) + theme_.px(12);
    for (std::int32_t row = 1; row <= std::min(list.rowCount(), measuredRows); ++row) {
      widest = std::max(widest, theme_.metrics().textWidth(list.cellText(row, i)));
    }
    const bool isLast = i + 1 == list.captions().size();
    const int most = isLast ? widestLastColumn : widestColumn;
    const int units = std::clamp(MulDiv(widest, 96, theme_.dpi()) + 20, 70, most);
    columns_.push_back({std::to_string(i), list.captions()[i], units, controls::ColumnKind::Text});
    width += units;
  }
  width = theme_.px(std::clamp(width + 40, 440, 900));
  const int height = theme_.px(usualHeight);
  RECT around{};
  if (!owner || !GetWindowRect(owner, &around))
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
  const layout::Rect place =
      layout::fitInto({static_cast<int>(around.left + around.right - width) / 2,
                       static_cast<int>(around.top + around.bottom - height) / 2, width, height},
                      toRect(workAreaAt(around)));
  create(module,
         {L"kebu.lookup", WS_POPUPWINDOW | WS_CAPTION | WS_THICKFRAME | WS_CLIPCHILDREN,
          WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME},
         owner, toRECT(place), toWide(list.title()));
  pointer_.watch(handle());
  build();
  keys_ = std::make_unique<KeyboardHook>(handle(), *this);
  subscriptions_.push_back(list_.tools().changed.connect([this] { grid_->sourceChanged(); }));
  subscriptions_.push_back(list_.tools().moved.connect([this] { grid_->showCurrentRow(); }));
  layOut();
}

LookupWindow::~LookupWindow() {
  stopAnswering();
  subscriptions_.clear();
  keys_.reset();
  grid_.reset();
  destroy();
}

void LookupWindow::build() {
  const auto make = [&](const wchar_t* kind, const wchar_t* text, DWORD style, DWORD extended) {
    HWND window = CreateWindowExW(extended, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                                  handle(), nullptr, module_, nullptr);
    setFont(window, theme_.font(), false);
    return window;
  };
  const auto& texts = list_.texts();
  hint_ = make(L"STATIC", toWide(texts.search).c_str(), SS_CENTERIMAGE, 0);
  search_ = make(L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, 0);
  frameEdit(search_, theme_);
  describeStock(search_, L"EditBox", toWide(texts.search));
  grid_ = std::make_unique<GridControl>(module_, handle(), theme_, *this);
  ShowWindow(grid_->handle(), SW_SHOWNA);
  nothingFound_ = make(L"STATIC", toWide(texts.nothingFound).c_str(), SS_CENTERIMAGE, 0);
  ShowWindow(nothingFound_, SW_HIDE);
  if (!texts.take.empty()) {
    take_ = make(L"BUTTON", toWide(texts.take).c_str(), WS_TABSTOP | BS_OWNERDRAW, 0);
  }
  leave_ = make(L"BUTTON", toWide(texts.leave).c_str(), WS_TABSTOP | BS_OWNERDRAW, 0);
  if (take_) EnableWindow(take_, rowCount() > 0);
}

void LookupWindow::layOut() {
  const RECT client = clientArea();
  const int edge = theme_.px(14);
  const int field = theme_.metrics().fieldHeight();
  const int width = static_cast<int>(client.right) - 2 * edge;
  const int words = theme_.metrics().textWidth(list_.texts().search) + theme_.px(10);
  moveWindow(hint_, {edge, edge, words, field});
  moveWindow(search_, {edge + words, edge, width - words, field});
  const int button = field + theme_.px(4);
  const int foot = static_cast<int>(client.bottom) - edge - button;
  const int listTop = edge + field + theme_.px(10);
  moveWindow(grid_->handle(), {edge, listTop, width, std::max(foot - theme_.px(10) - listTop, 0)});
  const auto widthOf = [&](const std::string& caption) {
    return std::max(theme_.metrics().textWidth(caption) + theme_.px(60), theme_.px(110));
  };
  const int buttonWidth = std::max(widthOf(list_.texts().take), widthOf(list_.texts().leave));
  const int right = edge + width;
  if (take_) moveWindow(take_, {right - 2 * buttonWidth - theme_.px(8), foot, buttonWidth, button});
  moveWindow(leave_, {right - buttonWidth, foot, buttonWidth, button});
  moveWindow(nothingFound_, {edge, foot, right - 2 * buttonWidth - theme_.px(8) - edge, button});
  grid_->sourceChanged();
  invalidate();
}

void LookupWindow::renewTheme(int dpi) {
  theme_ = Theme(dpi);
  for (HWND window : {hint_, search_, nothingFound_, take_, leave_}) {
    setFont(window, theme_.font(), false);
  }
  frameEdit(search_, theme_);
  grid_->themeChanged();
  layOut();
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void LookupWindow::show() {
  ShowWindow(handle(), SW_SHOW);
  SetForegroundWindow(handle());
  SetFocus(search_);
  grid_->showCurrentRow();
}

void LookupWindow::selectRow(std::int32_t row) {
  list_.goTo(row);
  grid_->invalidate();
}

void LookupWindow::search() {
  list_.search(toUtf8(windowText(search_)));
  const bool found = rowCount() > 0;
  if (take_) EnableWindow(take_, found);
  ShowWindow(nothingFound_, found ? SW_HIDE : SW_SHOWNA);
  if (!found) NotifyWinEvent(EVENT_SYSTEM_ALERT, nothingFound_, OBJID_CLIENT, CHILDID_SELF);
  grid_->sourceChanged();
  grid_->showCurrentRow();
}

void LookupWindow::take() {
  if (!take_) {
    leave();
    return;
  }
  if (currentRow() < 1) return;
  list_.choose(list_.current());
  done_ = true;
}

void LookupWindow::tell(const std::string& text) {
  MessageBoxW(handle(), toWide(text).c_str(), toWide(list_.title()).c_str(), MB_ICONEXCLAMATION);
}

std::function<void()> LookupWindow::actionFor(const Key& key) {
  if (key.mnemonic) return {};
  HWND focus = GetFocus();
  if (key.isPlain(VK_F1)) return help_;
  if (key.code == 'F' && key.control) return [this] { SetFocus(search_); };
  if (focus == grid_->handle() && key.control) return grid_->actionFor(key);
  const bool takes = key.isPlain(VK_F10) || (key.isPlain(VK_RETURN) && focus != leave_);
  if (takes) return [this] { take(); };
  if (key.isPlain(VK_ESCAPE) || key.isPlain(VK_RETURN)) return [this] { leave(); };
  if (key.code == VK_TAB && !key.control) {
    return [this, back = key.shift] {
      if (HWND next = GetNextDlgTabItem(handle(), GetFocus(), back)) SetFocus(next);
    };
  }
  // These keys move in the list while the focus stays in the search box.
  const bool walks =
      key.code == VK_UP || key.code == VK_DOWN || key.code == VK_PRIOR || key.code == VK_NEXT;
  if (walks && focus == search_) {
    return [this, code = key.code] { grid_->moveBy(code, false); };
  }
  return {};
}

bool LookupWindow::inspect(Inspection& inspection) {
  write(inspection.kind, std::wstring(L"LookupList"));
  if (inspection.control[0] != L'\0') return false;
  inspection.count = rowCount();
  inspection.columns = static_cast<std::int32_t>(columns_.size());
  inspection.current = currentRow();
  const auto column = static_cast<std::size_t>(
      inspection.key[0] ? std::wcstol(inspection.key, nullptr, 10) : inspection.index);
  const bool hasRow = inspection.row >= 1 && inspection.row <= rowCount();
  const bool isControl = inspection.part == Inspected::Control;
  const bool isHeads = inspection.part == Inspected::Row && inspection.row == 0;
  describeWindow(inspection, isControl ? handle() : grid_->handle());
  switch (inspection.part) {
    case Inspected::Control:
      writeText(inspection, list_.title());
      inspection.index = static_cast<std::int32_t>(grid_->currentColumn());
      return true;
    case Inspected::Row:
      if (isHeads) {
        inspection.bounds = grid_->headsBounds();
        write(inspection.spoken, toWide(translated("Intestazioni")));
        return true;
      }
      if (!hasRow) return false;
      write(inspection.spoken, toWide(translated("Riga") + " " + std::to_string(inspection.row)));
      inspection.bounds = grid_->rowBounds(inspection.row);
      return true;
    case Inspected::Column:
      if (column >= columns_.size()) return false;
      inspection.bounds = grid_->headBounds(column);
      writeText(inspection, columns_[column].caption);
      return true;
    case Inspected::Cell:
      if (!hasRow || column >= columns_.size()) return false;
      inspection.bounds = grid_->cellBounds(inspection.row, column);
      writeText(inspection, cellText(inspection.row, column));
      write(inspection.spoken, toWide(columns_[column].caption));
      return true;
    default:
      return false;
  }
}

LRESULT LookupWindow::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!leave_) return Window::answer(message, wParam, lParam);
  if (message == inspectMessage()) {
    auto* const inspection = reinterpret_cast<Inspection*>(lParam);
    return inspection && inspection->size == sizeof(Inspection) && inspect(*inspection);
  }
  switch (message) {
    case KeyboardHook::message:
      KeyboardHook::act(*this, wParam, lParam);
      return 0;
    case WM_SETCURSOR:
      pointer_.pointerMoved(reinterpret_cast<HWND>(wParam));
      return Window::answer(message, wParam, lParam);
    case WM_TIMER:
      if (wParam == PointerWatch::timer) pointer_.tick();
      return 0;
    case WM_SIZE:
      layOut();
      return 0;
    case WM_DPICHANGED: {
      const RECT& suggested = *reinterpret_cast<const RECT*>(lParam);
      SetWindowPos(handle(), nullptr, suggested.left, suggested.top,
                   suggested.right - suggested.left, suggested.bottom - suggested.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
      renewTheme(HIWORD(wParam));
      return 0;
    }
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      renewTheme(theme_.dpi());
      return 0;
    case WM_ERASEBKGND:
      fill(reinterpret_cast<HDC>(wParam), clientArea(), theme_.colours().window);
      return 1;
    case WM_CTLCOLOREDIT:
      SetBkColor(reinterpret_cast<HDC>(wParam), theme_.colours().card);
      SetTextColor(reinterpret_cast<HDC>(wParam), theme_.colours().text);
      return reinterpret_cast<LRESULT>(theme_.cardBrush());
    case WM_CTLCOLORSTATIC:
      SetBkColor(reinterpret_cast<HDC>(wParam), theme_.colours().window);
      SetTextColor(reinterpret_cast<HDC>(wParam), theme_.colours().muted);
      return reinterpret_cast<LRESULT>(theme_.windowBrush());
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      const bool isTake = item.hwndItem == take_;
      drawPushButton(item, theme_,
                     {windowText(item.hwndItem), isTake ? L"F10" : L"Esc", isTake,
                      theme_.colours().window, pointer_.control() == item.hwndItem});
      return TRUE;
    }
    case WM_COMMAND: {
      auto* const from = reinterpret_cast<HWND>(lParam);
      if (from == search_ && HIWORD(wParam) == EN_CHANGE) search();
      if (from == take_ && HIWORD(wParam) == BN_CLICKED) take();
      if (from == leave_ && HIWORD(wParam) == BN_CLICKED) leave();
      return 0;
    }
    case WM_CLOSE:
      leave();
      return 0;
    default:
      return Window::answer(message, wParam, lParam);
  }
}

}  // namespace kebu::windows
