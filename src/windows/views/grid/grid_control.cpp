#include "windows/views/grid/grid_control.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "windows/support/text.h"
#include "windows/views/accessibility/accessible_object.h"
#include "windows/views/grid/column_ruler.h"
#include "windows/views/window/context_menu.h"
#include "windows/views/window/guard.h"

namespace kebu::windows {

using controls::ColumnKind;

namespace {

constexpr int wheelStep = 72;  // in 96ths of an inch

bool isTyped(ColumnKind kind) {
  return kind == ColumnKind::Number || kind == ColumnKind::Lookup;
}

bool contains(const RECT& area, POINT point) {
  return PtInRect(&area, point) != 0;
}

}  // namespace

GridControl::GridControl(HINSTANCE module, HWND parent, const Theme& theme, GridSource& source)
    : theme_(&theme),
      source_(source),
      geometry_(theme.metrics()),
      editor_(module, theme),
      foot_(module, theme),
      tip_([this](POINT point) { return tipAt(point); }) {
  create(module, {L"kebu.grid", WS_CHILD | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | WS_CLIPCHILDREN},
         parent, {});
  tip_.create(handle());
  if (theme.colours().isSystems) takeColours(handle(), theme);
}

// ---- geometry

layout::GridGeometry& GridControl::geometry() {
  layout::GridContents contents{{}, source_.rowCount(), source_.keepsRowState()};
  for (const GridSource::Column& column : source_.columns()) {
    const int given = source_.tools().width(contents.columns.size()).value_or(0);
    contents.columns.push_back({column.width, column.kind == ColumnKind::Check, given});
  }
  geometry_.setContents(std::move(contents));
  const RECT area = clientArea();
  geometry_.setSize(static_cast<int>(area.right), static_cast<int>(foot_.bounds(area).top));
  return geometry_;
}

bool GridControl::isTickAllOn(std::size_t column) const {
  return source_.tickState(column) == controls::TickState::All;
}

void GridControl::measureColumns() {
  layout::GridGeometry& columns = geometry();
  if (measuredRows_ != columns.rowCount()) {
    columns.forgetRequiredWidths();
    measuredRows_ = columns.rowCount();
  }
  const ColumnRuler ruler(*theme_, source_);
  // While the same rows are shown columns only get wider, so that they do not jump during
  // scrolling.
  for (std::size_t i = 0; i < source_.columns().size(); ++i) {
    columns.setRequiredWidth(
        i, std::max({columns.requiredWidth(i), ruler.headWidth(i),
                     ruler.cellsWidth(i, columns.topRow(), columns.bottomRow())}));
  }
}

RECT GridControl::rowBounds(std::int32_t row) {
  const RECT whole = toRECT(geometry().rowBounds(row));
  RECT rows = clientArea();
  rows.bottom = foot_.bounds(rows).top;
  RECT seen{};
  IntersectRect(&seen, &whole, &rows);
  return seen;
}

RECT GridControl::headsBounds() const {
  RECT heads = clientArea();
  heads.bottom = std::min<LONG>(heads.bottom, geometry_.headHeight());
  return heads;
}

// ---- assistive technology

PartId GridControl::partAt(POINT point) {
  const layout::GridHit hit = geometry().hitTest(point.x, point.y);
  if (hit.row < 0) return {};
  if (hit.column < 0) return {Inspected::Row, hit.row, 0};
  return {hit.row == 0 ? Inspected::Column : Inspected::Cell, hit.row, hit.column};
}

bool GridControl::goToPart(const PartId& part) {
  const bool isCell = part.part == Inspected::Cell;
  if (!isCell && part.part != Inspected::Row) return false;
  return goTo(part.row, isCell ? static_cast<std::size_t>(part.index) : column_);
}

void GridControl::tellCell(DWORD event, std::int32_t row, std::size_t column) const {
  tellChange(event, handle(),
             cellChild(row, static_cast<std::int32_t>(column),
                       static_cast<std::int32_t>(source_.columns().size())));
}

void GridControl::tellPosition() {
  const std::int32_t row = source_.currentRow();
  if (GetFocus() != handle() || row < 1) return;
  const auto before = std::exchange(told_, {row, column_});
  if (before == told_) return;
  if (before.first != row) tellChange(EVENT_OBJECT_SELECTION, handle(), rowChild(row));
  tellCell(EVENT_OBJECT_FOCUS, row, column_);
}

// ---- scrolling

void GridControl::updateScrollBars() {
  tip_.hide();
  geometry().clampPosition();
  setScrollBar(SB_VERT, geometry_.verticalRange());
  // The client area changes when the vertical bar appears or disappears.
  geometry().clampPosition();
  setScrollBar(SB_HORZ, geometry_.horizontalRange());
}

void GridControl::scrollTo(std::int32_t topRow) {
  commit();
  geometry().scrollToRow(topRow);
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
  scrollSideways(*to);
}

void GridControl::scrollSideways(int offset) {
  commit();
  geometry().scrollToOffset(offset);
  updateScrollBars();
  invalidate();
}

void GridControl::wheelTurned(int delta, bool sideways) {
  int& turned = sideways ? sidewaysWheel_ : wheel_;
  turned += delta;
  const int notches = turned / WHEEL_DELTA;
  turned -= notches * WHEEL_DELTA;
  if (sideways) {
    scrollSideways(geometry().horizontalRange().position - theme_->px(wheelStep) * notches);
  } else {
    scrollTo(geometry_.topRow() - 3 * notches);
  }
}

void GridControl::showCurrentRow() {
  const std::int32_t row = source_.currentRow();
  tellPosition();
  if (row < 1 || geometry().isInView(row)) return;
  commit();
  geometry().showRow(row);
  updateScrollBars();
  invalidate();
}

void GridControl::showColumn(std::size_t column) {
  geometry().showColumn(column);
  updateScrollBars();
}

// ---- changes of the source

void GridControl::sourceChanged() {
  if (column_ >= source_.columns().size()) column_ = 0;
  if (anchor_ > source_.rowCount()) anchor_ = 0;
  if (std::exchange(toldRows_, source_.rowCount()) != source_.rowCount()) {
    tellChange(EVENT_OBJECT_REORDER, handle());
  }
  measureColumns();
  updateScrollBars();
  foot_.layOut(clientArea());
  if (source_.tools().isBusy()) SetTimer(handle(), workTimer, workInterval, nullptr);
  invalidate();
}

void GridControl::themeChanged() {
  commit();
  geometry().forgetRequiredWidths();
  takeColours(handle(), *theme_);
  foot_.themeChanged();
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
  tellPosition();
  invalidate();
  return done;
}

void GridControl::tick(std::int32_t row, std::size_t column) {
  if (!isEditable(row, column)) {
    MessageBeep(MB_OK);
    return;
  }
  guarded([&] { source_.tick(row, column); });
  tellCell(EVENT_OBJECT_STATECHANGE, row, column);
  invalidate();
}

void GridControl::tickAll(std::size_t column, bool on) {
  if (!commit() || !source_.isEnabled() || source_.rowCount() == 0) return;
  guarded([&] { source_.tickAll(column, on); });
  invalidate();
}

void GridControl::buttonDown(POINT point, bool shift) {
  SetFocus(handle());
  if (isOnStopButton(point)) {
    stopWork();
    return;
  }
  const layout::GridHit hit = geometry().hitTest(point.x, point.y);
  if (hit.onEdge) {
    resizing_ = hit.column;
    SetCapture(handle());
    return;
  }
  if (hit.row < 0 || hit.column < 0) return;
  const auto column = static_cast<std::size_t>(hit.column);
  const bool isCheck = source_.columns()[column].kind == ColumnKind::Check;
  if (hit.row == 0) {
    if (isCheck && contains(tickAllBounds(column), point)) {
      tickAll(column, !isTickAllOn(column));
    } else {
      sortBy(column);
    }
    return;
  }
  if (shift) {
    if (!anchor_) anchor_ = source_.currentRow();
    goTo(hit.row, column);
    return;
  }
  anchor_ = 0;
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

void GridControl::rightButtonDown(POINT point) {
  SetFocus(handle());
  const layout::GridHit hit = geometry().hitTest(point.x, point.y);
  if (hit.column < 0 || hit.row < 0) return;
  const auto [first, last] = chosenRows();
  const bool isChosen = hit.row >= first && hit.row <= last;
  if (!isChosen) anchor_ = 0;
  const std::int32_t row = isChosen || hit.row == 0 ? source_.currentRow() : hit.row;
  if (!goTo(row, static_cast<std::size_t>(hit.column))) {
    column_ = static_cast<std::size_t>(hit.column);  // in a grid without rows
  }
}

void GridControl::pointerMoved(POINT point) {
  if (resizing_ >= 0) {
    geometry().moveEdge(static_cast<std::size_t>(resizing_), point.x);
    updateScrollBars();
    invalidate();
    return;
  }
  const layout::GridHit hit = geometry().hitTest(point.x, point.y);
  tip_.pointerOn((static_cast<std::int64_t>(hit.row) << 16) + hit.column);
  if (pointer_.moved()) pointerOnRow(std::max(hit.row, 0));
}

void GridControl::pointerOnRow(std::int32_t row) {
  const std::int32_t before = std::exchange(hotRow_, row);
  if (before == row) return;
  for (const std::int32_t each : {before, row}) {
    const RECT bounds = rowBounds(each);
    if (each > 0) InvalidateRect(handle(), &bounds, FALSE);
  }
  TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, handle(), 0};
  TrackMouseEvent(&leaving);
}

void GridControl::doubleClick(POINT point) {
  const layout::GridHit hit = geometry().hitTest(point.x, point.y);
  if (hit.onEdge) {
    fitColumn(static_cast<std::size_t>(hit.column));
    return;
  }
  if (hit.row == 0) {
    buttonDown(point, false);  // two quick clicks are two clicks
    return;
  }
  if (hit.row < 1 || hit.column < 0) return;
  const auto column = static_cast<std::size_t>(hit.column);
  if (source_.columns()[column].kind == ColumnKind::Check) {
    tick(hit.row, column);  // two quick clicks are two clicks
  } else if (isEditable(hit.row, column)) {
    if (!editor_.isOpen()) startEdit(nullptr);
  } else {
    guarded([&] { source_.activate(); });
  }
}

bool GridControl::moveBy(WPARAM key, bool control, bool shift) {
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
      to = row - geometry().visibleRows();
      break;
    case VK_NEXT:
      to = row + geometry().visibleRows();
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
  if (last == 0) return true;
  if (!shift) anchor_ = 0;
  if (shift && !anchor_) anchor_ = row;
  goTo(std::clamp(to, 1, last), column_);
  return true;
}

void GridControl::keyDown(WPARAM key, bool shift, bool control) {
  if (moveBy(key, control, shift)) return;
  const std::int32_t row = source_.currentRow();
  const std::size_t count = source_.columns().size();
  if (count == 0) return;
  const bool isCheck = source_.columns()[column_].kind == ColumnKind::Check;
  switch (key) {
    case VK_LEFT:
      goTo(row, geometry().shownFrom(column_, -1));
      break;
    case VK_RIGHT:
      goTo(row, geometry().shownFrom(column_, 1));
      break;
    case VK_HOME:
      goTo(row, 0);
      break;
    case VK_END:
      goTo(row, geometry().shownFrom(count, -1));
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
  const bool isEdited =
      isTyped(source_.columns()[column_].kind) && isEditable(source_.currentRow(), column_);
  if (!isEdited) {
    openFind(column_, typed);
    return;
  }
  const wchar_t start[] = {typed, L'\0'};
  startEdit(start);
}

std::function<void()> GridControl::actionFor(const Key& key) {
  if (source_.columns().empty()) return {};
  if (editor_.isOpen()) {
    if (key.isPlain(VK_RETURN) || key.isPlain(VK_TAB)) {
      return [this] {
        if (commit()) SetFocus(handle());
      };
    }
    if (key.isPlain(VK_ESCAPE)) {
      return [this] {
        cancelEdit();
        SetFocus(handle());
      };
    }
  }
  if (key.isPlain(VK_ESCAPE) && source_.tools().isBusy()) {
    return [this] { stopWork(); };
  }
  if (foot_.isOpen()) {
    if (auto action = findBoxAction(key)) return action;
  }
  // In a box that is typed into these keys have their usual meaning there.
  if (GetFocus() == handle() || key.code == 'G') {
    if (auto action = actionIn(menu(), key)) return action;
  }
  if (GetFocus() != handle()) return {};
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
  if (row < 1 || editor_.isOpen() || source_.columns().empty()) return;
  const ColumnKind kind = source_.columns()[column_].kind;
  const bool isList = kind == ColumnKind::ValueList;
  if (!isEditable(row, column_) || (!isList && !isTyped(kind))) {
    MessageBeep(MB_OK);
    return;
  }
  showCurrentRow();
  showColumn(column_);
  const CellEditor::Place place{handle(), cellBounds(row, column_)};
  const CellEditor::Cell cell{row, column_, toWide(source_.cellText(row, column_)),
                              toWide(headOf(column_))};
  if (isList) {
    editor_.openList(place, cell, source_.itemsOf(row, column_));
  } else {
    editor_.openText(place, cell, kind == ColumnKind::Number, typed);
  }
}

void GridControl::cancelEdit() {
  editor_.discard();
  invalidate();
}

bool GridControl::commit() {
  if (!editor_.isOpen()) return true;
  const auto entry = editor_.take();
  invalidate();
  return !entry || guarded([&] { store(*entry); });
}

void GridControl::store(const CellEditor::Entry& entry) {
  if (entry.isFromList) {
    if (entry.item) source_.choose(entry.row, entry.column, *entry.item);
  } else if (entry.text.empty()) {
    source_.empty(entry.row, entry.column);
  } else {
    source_.edit(entry.row, entry.column, toUtf8(entry.text));
  }
  tellCell(EVENT_OBJECT_VALUECHANGE, entry.row, entry.column);
}

void GridControl::editorNotified(UINT code) {
  switch (editor_.notified(code)) {
    case CellEditor::Request::Nothing:
      break;
    case CellEditor::Request::Discard:
      cancelEdit();
      break;
    case CellEditor::Request::Keep:
      commit();
      break;
    case CellEditor::Request::KeepAndFocusGrid:
      commit();
      SetFocus(handle());
      break;
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
    case WM_GETOBJECT:
      if (Describable* const described = source_.description()) {
        if (const auto object = answerGetObject(*described, {}, wParam, lParam)) return *object;
      }
      break;
    case WM_SETFOCUS:
      told_ = {};
      tellPosition();
      invalidate();
      return 0;
    case WM_KILLFOCUS:
    case WM_ENABLE:
      invalidate();
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_LBUTTONDOWN:
      buttonDown(point, (wParam & MK_SHIFT) != 0);
      return 0;
    case WM_RBUTTONDOWN:
      rightButtonDown(point);
      return 0;
    case WM_CONTEXTMENU:
      if (reinterpret_cast<HWND>(wParam) != handle()) break;
      showMenu(point);
      return 0;
    case WM_LBUTTONDBLCLK:
      doubleClick(point);
      return 0;
    case WM_MOUSEMOVE:
      pointerMoved(point);
      return 0;
    case WM_MOUSELEAVE:
      pointerOnRow(0);
      return 0;
    case WM_LBUTTONUP:
      if (resizing_ < 0) return 0;
      keepWidth(static_cast<std::size_t>(resizing_));
      ReleaseCapture();
      return 0;
    case WM_CAPTURECHANGED:
      resizing_ = -1;
      return 0;
    case WM_SETCURSOR: {
      POINT at{};
      GetCursorPos(&at);
      ScreenToClient(handle(), &at);
      if (LOWORD(lParam) == HTCLIENT && geometry().hitTest(at.x, at.y).onEdge) {
        SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
        return TRUE;
      }
      break;
    }
    case WM_MOUSEWHEEL:
      wheelTurned(GET_WHEEL_DELTA_WPARAM(wParam), (GET_KEYSTATE_WPARAM(wParam) & MK_SHIFT) != 0);
      return 0;
    case WM_MOUSEHWHEEL:
      wheelTurned(-GET_WHEEL_DELTA_WPARAM(wParam), true);
      return 0;
    case WM_TIMER:
      if (wParam == workTimer) workOn();
      return 0;
    case WM_NOTIFY:
      if (tip_.notified(handle(), reinterpret_cast<NMHDR*>(lParam))) return 0;
      break;
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
      if (editor_.owns(reinterpret_cast<HWND>(lParam))) editorNotified(HIWORD(wParam));
      if (foot_.owns(reinterpret_cast<HWND>(lParam)) && HIWORD(wParam) == EN_CHANGE) {
        attempt([&] { source_.tools().find(toUtf8(foot_.entered()), soughtIn_); });
      }
      return 0;
    case CellEditor::destroyMessage:
      CellEditor::destroy(lParam);
      return 0;
    default:
      break;
  }
  return Window::answer(message, wParam, lParam);
}

}  // namespace kebu::windows
