#include "windows/views/grid/grid_control.h"

#include <windowsx.h>

#include <algorithm>

#include "windows/support/text.h"
#include "windows/views/window/common_controls.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

using controls::ColumnKind;

namespace {

constexpr UINT discardEditor = WM_APP + 10;
constexpr int leastColumn = 28;  // in 96ths of an inch
constexpr int edgeReach = 4;
constexpr int openList = 280;  // the height of a value list

bool isTyped(ColumnKind kind) {
  return kind == ColumnKind::Number || kind == ColumnKind::Lookup;
}

bool contains(const RECT& area, POINT point) {
  return PtInRect(&area, point) != 0;
}

}  // namespace

GridControl::GridControl(HINSTANCE module, HWND parent, const Theme& theme, GridSource& source)
    : module_(module), theme_(&theme), source_(source) {
  create(module, {L"kebu.grid", WS_CHILD | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | WS_CLIPCHILDREN},
         parent, {});
}

GridControl::~GridControl() = default;

// ---- sizes

int GridControl::rowHeight() const {
  return theme_->metrics().lineHeight + theme_->px(11);
}
int GridControl::headHeight() const {
  return theme_->metrics().lineHeight + theme_->px(15);
}
int GridControl::gutter() const {
  return theme_->px(source_.keepsRowState() ? 22 : 4);
}

int GridControl::columnWidth(std::size_t column) const {
  if (!isShown(column)) return 0;
  const int drawn = column < widths_.size() ? widths_[column] : 0;
  if (drawn) return theme_->px(std::max(drawn, leastColumn));
  const int needed = column < needed_.size() ? needed_[column] : 0;
  return std::max(theme_->px(std::max(source_.columns()[column].width, leastColumn)), needed);
}

bool GridControl::isShown(std::size_t column) const {
  return source_.columns()[column].width > 0;
}

std::size_t GridControl::shownFrom(std::size_t column, int step) const {
  const std::size_t count = source_.columns().size();
  std::size_t at = column + static_cast<std::size_t>(step);
  while (at < count && !isShown(at)) at += static_cast<std::size_t>(step);
  return at < count ? at : column;
}

int GridControl::columnLeft(std::size_t column) const {
  int left = gutter() - leftOffset_;
  for (std::size_t i = 0; i < column; ++i) left += columnWidth(i);
  return left;
}

int GridControl::totalWidth() const {
  return columnLeft(source_.columns().size()) + leftOffset_;
}

int GridControl::visibleRows() const {
  return std::max((static_cast<int>(clientArea().bottom) - headHeight()) / rowHeight(), 1);
}

std::int32_t GridControl::lastTopRow() const {
  return std::max(source_.rowCount() - visibleRows() + 1, 1);
}

RECT GridControl::rowBounds(std::int32_t row) const {
  const RECT area = clientArea();
  if (row < topRow_ || row > topRow_ + visibleRows() || row > source_.rowCount()) return {};
  const LONG top = headHeight() + (row - topRow_) * rowHeight();
  if (top >= area.bottom) return {};
  return {0, top, area.right, top + rowHeight()};
}

RECT GridControl::cellBounds(std::int32_t row, std::size_t column) const {
  RECT bounds = rowBounds(row);
  if (IsRectEmpty(&bounds)) return {};
  bounds.left = columnLeft(column);
  bounds.right = bounds.left + columnWidth(column);
  const RECT area = clientArea();
  RECT seen{};
  return IntersectRect(&seen, &area, &bounds) ? bounds : RECT{};
}

RECT GridControl::headBounds(std::size_t column) const {
  const LONG left = columnLeft(column);
  return {left, 0, left + columnWidth(column), headHeight()};
}

RECT GridControl::tickAllBounds(std::size_t column) const {
  if (source_.columns()[column].kind != ColumnKind::Check) return {};
  RECT box = headBounds(column);
  box.left += theme_->px(6);
  box.right = box.left + theme_->px(16);
  return box;
}

bool GridControl::isTickAllOn(std::size_t column) const {
  const auto at = allTicked_.find(column);
  return at != allTicked_.end() && at->second;
}

GridControl::Hit GridControl::hitTest(POINT point) const {
  Hit hit;
  for (std::size_t i = 0; i < source_.columns().size(); ++i) {
    if (!isShown(i)) continue;
    const int right = columnLeft(i) + columnWidth(i);
    if (point.y < headHeight() && std::abs(point.x - right) <= theme_->px(edgeReach)) {
      hit.onEdge = true;
      hit.column = static_cast<int>(i);
      return hit;
    }
    if (point.x >= columnLeft(i) && point.x < right) hit.column = static_cast<int>(i);
  }
  if (point.y >= headHeight()) {
    hit.row = topRow_ + static_cast<std::int32_t>((point.y - headHeight()) / rowHeight());
    if (hit.row > source_.rowCount()) hit.row = -1;
  }
  return hit;
}

// ---- scrolling

void GridControl::updateScrollBars() {
  topRow_ = std::clamp(topRow_, 1, lastTopRow());
  SCROLLINFO vertical{sizeof vertical,
                      SIF_RANGE | SIF_PAGE | SIF_POS,
                      1,
                      std::max(source_.rowCount(), 1),
                      static_cast<UINT>(visibleRows()),
                      topRow_,
                      0};
  SetScrollInfo(handle(), SB_VERT, &vertical, TRUE);
  const int width = static_cast<int>(clientArea().right);
  leftOffset_ = std::clamp(leftOffset_, 0, std::max(totalWidth() - width, 0));
  SCROLLINFO horizontal{sizeof horizontal,
                        SIF_RANGE | SIF_PAGE | SIF_POS,
                        0,
                        std::max(totalWidth() - 1, 0),
                        static_cast<UINT>(width),
                        leftOffset_,
                        0};
  SetScrollInfo(handle(), SB_HORZ, &horizontal, TRUE);
}

void GridControl::scrollTo(std::int32_t topRow) {
  commit();
  topRow_ = std::clamp(topRow, 1, lastTopRow());
  updateScrollBars();
  invalidate();
}

void GridControl::scroll(int bar, WPARAM wParam) {
  const auto to = scrolled(bar, wParam, bar == SB_VERT ? 1 : theme_->px(24));
  if (!to) return;
  if (bar == SB_VERT) {
    scrollTo(*to);
    return;
  }
  commit();
  leftOffset_ = *to;
  updateScrollBars();
  invalidate();
}

void GridControl::showCurrentRow() {
  const std::int32_t row = source_.currentRow();
  if (row < 1) return;
  if (row < topRow_) scrollTo(row);
  if (row >= topRow_ + visibleRows()) scrollTo(row - visibleRows() + 1);
}

void GridControl::showColumn(std::size_t column) {
  const int width = static_cast<int>(clientArea().right);
  const int left = columnLeft(column);
  if (left < gutter()) leftOffset_ -= gutter() - left;
  const int over = left + columnWidth(column) - width;
  if (left >= gutter() && over > 0) leftOffset_ += std::min(over, left - gutter());
  updateScrollBars();
}

// ---- changes of the source

void GridControl::sourceChanged() {
  if (column_ >= source_.columns().size()) column_ = 0;
  if (widths_.size() != source_.columns().size()) widths_.assign(source_.columns().size(), 0);
  measureColumns();
  updateScrollBars();
  invalidate();
}

void GridControl::themeChanged() {
  commit();
  needed_.clear();
  sourceChanged();
}

// ---- acting

bool GridControl::isEditable(std::int32_t row, std::size_t column) {
  return source_.isEnabled() && row >= 1 && column < source_.columns().size() &&
         !source_.isLocked(row, column);
}

bool GridControl::goTo(std::int32_t row, std::size_t column) {
  if (row < 1 || row > source_.rowCount() || !commit()) return false;
  bool done = true;
  if (row != source_.currentRow()) done = guarded([&] { source_.selectRow(row); });
  column_ = column;
  showCurrentRow();
  showColumn(column);
  invalidate();
  return done;
}

void GridControl::tick(std::int32_t row, std::size_t column) {
  if (!isEditable(row, column)) {
    MessageBeep(MB_OK);
    return;
  }
  guarded([&] { source_.tick(row, column); });
  allTicked_[column] = false;
  invalidate();
}

void GridControl::tickAll(std::size_t column, bool on) {
  if (!commit() || !source_.isEnabled() || source_.rowCount() == 0) return;
  if (guarded([&] { source_.tickAll(column, on); })) allTicked_[column] = on;
  invalidate();
}

void GridControl::buttonDown(POINT point) {
  SetFocus(handle());
  const Hit hit = hitTest(point);
  if (hit.onEdge) {
    resizing_ = hit.column;
    SetCapture(handle());
    return;
  }
  if (hit.row < 0 || hit.column < 0) return;
  const auto column = static_cast<std::size_t>(hit.column);
  const bool isCheck = source_.columns()[column].kind == ColumnKind::Check;
  if (hit.row == 0) {
    if (isCheck && contains(tickAllBounds(column), point)) tickAll(column, !isTickAllOn(column));
    return;
  }
  const bool wasCurrent = hit.row == source_.currentRow() && column == column_;
  if (!goTo(hit.row, column)) return;
  if (isCheck) {
    tick(hit.row, column);
  } else if (wasCurrent && isEditable(hit.row, column)) {
    const RECT cell = cellBounds(hit.row, column);
    const bool onGlyph = point.x >= cell.right - theme_->px(20);
    if (onGlyph && source_.columns()[column].kind == ColumnKind::Lookup) {
      lookupCurrent();
    } else {
      startEdit(nullptr);
    }
  }
}

void GridControl::doubleClick(POINT point) {
  const Hit hit = hitTest(point);
  if (hit.row < 1 || hit.column < 0) return;
  const auto column = static_cast<std::size_t>(hit.column);
  if (source_.columns()[column].kind == ColumnKind::Check) {
    tick(hit.row, column);  // two quick clicks are two clicks
  } else if (isEditable(hit.row, column)) {
    if (!editor_) startEdit(nullptr);
  } else {
    guarded([&] { source_.activate(); });
  }
}

bool GridControl::moveBy(WPARAM key, bool control) {
  const std::int32_t row = std::max(source_.currentRow(), 1);
  const std::int32_t last = source_.rowCount();
  std::int32_t to = row;
  switch (key) {
    case VK_UP:
      to = row - 1;
      break;
    case VK_DOWN:
      to = row + 1;
      break;
    case VK_PRIOR:
      to = row - visibleRows();
      break;
    case VK_NEXT:
      to = row + visibleRows();
      break;
    case VK_HOME:
      if (!control) return false;
      to = 1;
      break;
    case VK_END:
      if (!control) return false;
      to = last;
      break;
    default:
      return false;
  }
  if (last > 0) goTo(std::clamp(to, 1, last), column_);
  return true;
}

void GridControl::keyDown(WPARAM key, bool shift, bool control) {
  if (moveBy(key, control)) return;
  const std::int32_t row = source_.currentRow();
  const std::size_t count = source_.columns().size();
  if (count == 0) return;
  const bool isCheck = source_.columns()[column_].kind == ColumnKind::Check;
  switch (key) {
    case VK_LEFT:
      goTo(row, shownFrom(column_, -1));
      break;
    case VK_RIGHT:
      goTo(row, shownFrom(column_, 1));
      break;
    case VK_HOME:
      goTo(row, 0);
      break;
    case VK_END:
      goTo(row, shownFrom(count, -1));
      break;
    case VK_SPACE:
      if (isCheck) tick(row, column_);
      break;
    case VK_F2:
      startEdit(nullptr);
      break;
    case VK_DELETE:
      if (isEditable(row, column_) && !isCheck) {
        guarded([&] { source_.empty(row, column_); });
        invalidate();
      }
      break;
    case 'A':
      if (control && isCheck) tickAll(column_, !shift);
      break;
    default:
      break;
  }
}

void GridControl::character(wchar_t typed) {
  if (typed <= L' ' || source_.columns().empty()) return;
  if (!isTyped(source_.columns()[column_].kind)) return;
  const wchar_t start[] = {typed, L'\0'};
  startEdit(start);
}

std::function<void()> GridControl::actionFor(const Key& key) {
  if (source_.columns().empty()) return {};
  if (editor_) {
    if (key.isPlain(VK_RETURN) || key.isPlain(VK_TAB)) {
      return [this] {
        if (commit()) SetFocus(handle());
      };
    }
    if (key.isPlain(VK_ESCAPE)) {
      return [this] {
        endEdit();
        SetFocus(handle());
      };
    }
  }
  const ColumnKind kind = source_.columns()[column_].kind;
  if (key.isPlain(VK_F4) && kind == ColumnKind::Lookup) return [this] { lookupCurrent(); };
  if (key.isPlain(VK_F4) && kind == ColumnKind::ValueList) return [this] { startEdit(nullptr); };
  if (key.isPlain(VK_RETURN)) {
    return [this, kind] {
      const std::int32_t row = source_.currentRow();
      if (isEditable(row, column_) && kind != ColumnKind::Check) {
        startEdit(nullptr);
      } else {
        guarded([&] { source_.activate(); });
      }
    };
  }
  return {};
}

void GridControl::lookupCurrent() {
  if (!commit()) return;
  const std::int32_t row = source_.currentRow();
  if (!isEditable(row, column_)) {
    MessageBeep(MB_OK);
    return;
  }
  guarded([&] { source_.lookup(row, column_); });
  SetFocus(handle());
  invalidate();
}

// ---- editing in place

void GridControl::startEdit(const wchar_t* typed) {
  const std::int32_t row = source_.currentRow();
  if (row < 1 || editor_ || source_.columns().empty()) return;
  const GridSource::Column& column = source_.columns()[column_];
  const bool isList = column.kind == ColumnKind::ValueList;
  if (!isEditable(row, column_) || (!isList && !isTyped(column.kind))) {
    MessageBeep(MB_OK);
    return;
  }
  const CommonControls::Scope scope;
  showCurrentRow();
  showColumn(column_);
  const RECT cell = cellBounds(row, column_);
  const int width = std::max(static_cast<int>(cell.right - cell.left), theme_->px(60));
  editedRow_ = row;
  editedColumn_ = column_;
  editedText_ = toWide(source_.cellText(row, column_));
  entryTaken_ = false;
  const DWORD align = column.kind == ColumnKind::Number ? ES_RIGHT : 0U;
  const DWORD style = WS_CHILD | (isList ? CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL
                                         : WS_BORDER | ES_AUTOHSCROLL | align);
  editor_ = CreateWindowExW(0, isList ? L"COMBOBOX" : L"EDIT", L"", style, cell.left, cell.top,
                            width, cell.bottom - cell.top + (isList ? theme_->px(openList) : 0),
                            handle(), nullptr, module_, nullptr);
  if (!editor_) return;
  SendMessageW(editor_, WM_SETFONT, reinterpret_cast<WPARAM>(theme_->font()), FALSE);
  if (isList) {
    SendMessageW(editor_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), rowHeight() - 6);
    for (const std::string& item : source_.itemsOf(row, column_)) {
      SendMessageW(editor_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(item).c_str()));
    }
    SendMessageW(editor_, CB_SELECTSTRING, static_cast<WPARAM>(-1),
                 reinterpret_cast<LPARAM>(editedText_.c_str()));
  } else {
    SetWindowTextW(editor_, typed ? typed : editedText_.c_str());
    if (typed) {
      SendMessageW(editor_, EM_SETSEL, 1, 1);
    } else {
      SendMessageW(editor_, EM_SETSEL, 0, -1);
    }
  }
  ShowWindow(editor_, SW_SHOWNA);
  SetFocus(editor_);
  if (isList) SendMessageW(editor_, CB_SHOWDROPDOWN, TRUE, 0);
}

void GridControl::endEdit() {
  if (!editor_) return;
  HWND editor = std::exchange(editor_, nullptr);
  ShowWindow(editor, SW_HIDE);
  // It may be in the middle of telling us that it lost the focus.
  PostMessageW(handle(), discardEditor, 0, reinterpret_cast<LPARAM>(editor));
  invalidate();
}

bool GridControl::commit() {
  if (!editor_) return true;
  const bool isList = source_.columns()[editedColumn_].kind == ColumnKind::ValueList;
  const LRESULT item = isList ? SendMessageW(editor_, CB_GETCURSEL, 0, 0) : -1;
  const std::wstring typed = windowText(editor_);
  endEdit();
  if (typed == editedText_ && !entryTaken_) return true;
  return guarded([&] {
    if (isList) {
      if (item >= 0) source_.choose(editedRow_, editedColumn_, static_cast<std::size_t>(item));
    } else if (typed.empty()) {
      source_.empty(editedRow_, editedColumn_);
    } else {
      source_.edit(editedRow_, editedColumn_, toUtf8(typed));
    }
  });
}

void GridControl::editorNotified(UINT code) {
  if (!editor_) return;
  if (source_.columns()[editedColumn_].kind == ColumnKind::ValueList) {
    if (code == CBN_SELENDOK) entryTaken_ = true;
    if (code == CBN_SELENDCANCEL) endEdit();
    if (code == CBN_CLOSEUP) {
      commit();
      SetFocus(handle());
    }
    if (code == CBN_KILLFOCUS) commit();
  } else if (code == EN_KILLFOCUS) {
    commit();
  }
}

// ---- messages

LRESULT GridControl::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint();
      return 0;
    case WM_SIZE:
      sourceChanged();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
      invalidate();
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_LBUTTONDOWN:
      buttonDown(point);
      return 0;
    case WM_LBUTTONDBLCLK:
      doubleClick(point);
      return 0;
    case WM_MOUSEMOVE:
      if (resizing_ >= 0) {
        const auto column = static_cast<std::size_t>(resizing_);
        widths_[column] = std::max(
            MulDiv(static_cast<int>(point.x) - columnLeft(column), 96, theme_->dpi()), leastColumn);
        updateScrollBars();
        invalidate();
      }
      return 0;
    case WM_LBUTTONUP:
      if (resizing_ >= 0) ReleaseCapture();
      return 0;
    case WM_CAPTURECHANGED:
      resizing_ = -1;
      return 0;
    case WM_SETCURSOR: {
      POINT at{};
      GetCursorPos(&at);
      ScreenToClient(handle(), &at);
      if (LOWORD(lParam) == HTCLIENT && hitTest(at).onEdge) {
        SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
        return TRUE;
      }
      break;
    }
    case WM_MOUSEWHEEL: {
      wheel_ += GET_WHEEL_DELTA_WPARAM(wParam);
      const int notches = wheel_ / WHEEL_DELTA;
      wheel_ -= notches * WHEEL_DELTA;
      scrollTo(topRow_ - 3 * notches);
      return 0;
    }
    case WM_VSCROLL:
      scroll(SB_VERT, wParam);
      return 0;
    case WM_HSCROLL:
      scroll(SB_HORZ, wParam);
      return 0;
    case WM_KEYDOWN:
      keyDown(wParam, GetKeyState(VK_SHIFT) < 0, GetKeyState(VK_CONTROL) < 0);
      return 0;
    case WM_CHAR:
      character(static_cast<wchar_t>(wParam));
      return 0;
    case WM_COMMAND:
      if (reinterpret_cast<HWND>(lParam) == editor_) editorNotified(HIWORD(wParam));
      return 0;
    case discardEditor:
      DestroyWindow(reinterpret_cast<HWND>(lParam));
      return 0;
    default:
      break;
  }
  return Window::answer(message, wParam, lParam);
}

}  // namespace kebu::windows
