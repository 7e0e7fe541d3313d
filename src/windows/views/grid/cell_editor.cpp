#include "windows/views/grid/cell_editor.h"

#include <algorithm>
#include <utility>

#include "windows/support/text.h"
#include "windows/views/accessibility/stock_description.h"
#include "windows/views/window/common_controls.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

// In 96ths of an inch.
constexpr int minimumWidth = 60;
constexpr int openListHeight = 280;

}  // namespace

bool CellEditor::create(const Place& place, Cell cell, const wchar_t* className, DWORD style,
                        int listHeight) {
  const CommonControls::Scope scope;
  const RECT& area = place.cell;
  const int width = std::max(static_cast<int>(area.right - area.left), theme_->px(minimumWidth));
  cell_ = std::move(cell);
  entryTaken_ = false;
  control_ =
      CreateWindowExW(0, className, L"", WS_CHILD | style, area.left, area.top, width,
                      area.bottom - area.top + listHeight, place.grid, nullptr, module_, nullptr);
  if (!control_) return false;
  setFont(control_, theme_->font(), false);
  describeStock(control_, isList_ ? L"ComboBox" : L"EditBox", cell_.head);
  return true;
}

void CellEditor::show() {
  ShowWindow(control_, SW_SHOWNA);
  SetFocus(control_);
}

void CellEditor::openText(const Place& place, Cell cell, bool alignRight, const wchar_t* typed) {
  isList_ = false;
  const DWORD align = alignRight ? ES_RIGHT : 0U;
  if (!create(place, std::move(cell), L"EDIT", WS_BORDER | ES_AUTOHSCROLL | align, 0)) return;
  SetWindowTextW(control_, typed ? typed : cell_.text.c_str());
  if (typed) {
    SendMessageW(control_, EM_SETSEL, 1, 1);
  } else {
    SendMessageW(control_, EM_SETSEL, 0, -1);
  }
  show();
}

void CellEditor::openList(const Place& place, Cell cell, const std::vector<std::string>& items) {
  isList_ = true;
  constexpr DWORD style = CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL;
  if (!create(place, std::move(cell), L"COMBOBOX", style, theme_->px(openListHeight))) return;
  const LONG rowHeight = place.cell.bottom - place.cell.top;
  SendMessageW(control_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), rowHeight - 6);
  for (const std::string& item : items) {
    SendMessageW(control_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(item).c_str()));
  }
  SendMessageW(control_, CB_SELECTSTRING, static_cast<WPARAM>(-1),
               reinterpret_cast<LPARAM>(cell_.text.c_str()));
  show();
  SendMessageW(control_, CB_SHOWDROPDOWN, TRUE, 0);
}

std::optional<CellEditor::Entry> CellEditor::take() {
  if (!control_) return std::nullopt;
  const LRESULT item = isList_ ? SendMessageW(control_, CB_GETCURSEL, 0, 0) : -1;
  Entry entry{cell_.row, cell_.column, isList_, std::nullopt, windowText(control_)};
  if (item >= 0) entry.item = static_cast<std::size_t>(item);
  discard();
  if (entry.text == cell_.text && !entryTaken_) return std::nullopt;
  return entry;
}

void CellEditor::discard() {
  if (!control_) return;
  HWND control = std::exchange(control_, nullptr);
  ShowWindow(control, SW_HIDE);
  // It may be in the middle of telling the grid that it lost the focus.
  PostMessageW(GetParent(control), destroyMessage, 0, reinterpret_cast<LPARAM>(control));
}

CellEditor::Request CellEditor::notified(UINT code) {
  if (!isList_) return code == EN_KILLFOCUS ? Request::Keep : Request::Nothing;
  switch (code) {
    case CBN_SELENDOK:
      entryTaken_ = true;
      return Request::Nothing;
    case CBN_SELENDCANCEL:
      return Request::Discard;
    case CBN_CLOSEUP:
      return Request::KeepAndFocusGrid;
    case CBN_KILLFOCUS:
      return Request::Keep;
    default:
      return Request::Nothing;
  }
}

}  // namespace kebu::windows
