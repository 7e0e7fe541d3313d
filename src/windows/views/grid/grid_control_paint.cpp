// The part of GridControl that draws.

#include "windows/support/text.h"
#include "windows/views/grid/grid_control.h"

namespace kebu::windows {

using controls::ColumnKind;

namespace {

CheckState checkStateOf(controls::TickState state) {
  switch (state) {
    case controls::TickState::All:
      return CheckState::On;
    case controls::TickState::Some:
      return CheckState::Mixed;
    default:
      return CheckState::Off;
  }
}

}  // namespace

void GridControl::paint() {
  const BufferedPaint buffer(handle());
  const Palette& colours = theme_->colours();
  fill(buffer.dc(), buffer.area(), colours.card);
  const layout::GridGeometry& geometry = this->geometry();
  for (std::int32_t row = geometry.topRow(); row <= geometry.bottomRow(); ++row) {
    const RECT bounds = toRECT(geometry.rowBounds(row));
    RECT touched{};
    if (IntersectRect(&touched, &bounds, &buffer.area())) paintRow(buffer.dc(), row);
  }
  paintHead(buffer.dc());
  frame(buffer.dc(), clientArea(), colours.border);
}

void GridControl::paintHead(HDC dc) {
  const Palette& colours = theme_->colours();
  RECT head = clientArea();
  head.bottom = geometry().headHeight();
  fill(dc, head, colours.locked);
  for (std::size_t i = 0; i < source_.columns().size(); ++i) {
    if (!geometry_.isShown(i)) continue;
    const GridSource::Column& column = source_.columns()[i];
    RECT area = headBounds(i);
    const bool isOpenCode = column.caption.empty();  // shares the next column's caption
    if (!isOpenCode) {
      RECT edge{area.right - 1, area.top + theme_->px(6), area.right, area.bottom - theme_->px(6)};
      fill(dc, edge, colours.border);
    }
    area.left += theme_->px(8);
    if (column.kind == ColumnKind::Check && !column.refusesAll) {
      checkBox(dc, handle(), tickAllBounds(i), checkStateOf(source_.tickState(i)),
               source_.isEnabled() && source_.rowCount() > 0, theme_->px(14));
      area.left = tickAllBounds(i).right + theme_->px(5);
    }
    const UINT align = isNumeric(column.kind) ? DT_RIGHT : DT_LEFT;
    area.right -= theme_->px(6);
    text(dc, toWide(column.caption), area, colours.muted, theme_->strong(), DT_NOPREFIX | align);
  }
  head.top = head.bottom - 1;
  fill(dc, head, colours.border);
}

void GridControl::paintRow(HDC dc, std::int32_t row) {
  const Palette& colours = theme_->colours();
  RECT area = rowBounds(row);
  const bool isCurrent = row == source_.currentRow();
  if (isCurrent) fill(dc, area, colours.chosen);
  for (std::size_t i = 0; i < source_.columns().size(); ++i) {
    const RECT cell = cellBounds(row, i);
    if (!IsRectEmpty(&cell)) paintCell(dc, row, i, cell, isCurrent);
  }
  if (source_.keepsRowState()) {
    RECT mark{0, area.top, geometry_.gutter(), area.bottom};
    fill(dc, mark, isCurrent ? colours.chosen : colours.card);
    const int state = source_.rowState(row);
    if (state == 1 || state == 2) {
      const int size = theme_->px(9);
      const int left = (geometry_.gutter() - size) / 2 + 1;
      const int top = static_cast<int>(area.top + area.bottom - size) / 2;
      const COLORREF colour = state == 1 ? colours.good : colours.warning;
      card(dc, {left, top, left + size, top + size}, size, colour, colour);
    }
  }
  area.top = area.bottom - 1;
  fill(dc, area, colours.line);
}

void GridControl::paintCell(HDC dc, std::int32_t row, std::size_t column, const RECT& area,
                            bool isCurrentRow) {
  const Palette& colours = theme_->colours();
  const ColumnKind kind = source_.columns()[column].kind;
  const bool locked = isChangeable(kind) && source_.isLocked(row, column);
  const bool enabled = source_.isEnabled() && !locked;
  const bool unused = source_.isUnused(row, column);
  const std::string warning = source_.warningOf(row, column);
  if ((locked || unused) && !isCurrentRow) fill(dc, area, colours.locked);
  const bool isCurrentCell = isCurrentRow && column == column_;
  RECT inside = area;
  const std::string shown = warning.empty() ? source_.cellText(row, column) : warning;
  if (kind == ColumnKind::Check) {
    checkBox(dc, handle(), inside, shown == "1" ? CheckState::On : CheckState::Off, enabled,
             theme_->px(14));
  } else {
    inside.left += theme_->px(8);
    inside.right -= theme_->px(6);
    const bool showsGlyph =
        isCurrentCell && enabled && (kind == ColumnKind::ValueList || kind == ColumnKind::Lookup);
    if (showsGlyph) {
      RECT glyph = inside;
      glyph.left = glyph.right - theme_->px(12);
      const wchar_t* const sign = kind == ColumnKind::Lookup ? L"\u2026" : L"\u25BE";
      text(dc, sign, glyph, colours.accent, theme_->font(), DT_CENTER | DT_NOPREFIX);
      inside.right = glyph.left;
    }
    const COLORREF ink = !warning.empty()                  ? colours.warning
                         : !source_.isEnabled() || locked  ? colours.faint
                         : kind == ColumnKind::Description ? colours.muted
                                                           : colours.text;
    const UINT align = isNumeric(kind) ? DT_RIGHT : DT_LEFT;
    text(dc, toWide(shown), inside, ink, theme_->font(), align | DT_NOPREFIX);
  }
  if (isCurrentCell && GetFocus() == handle()) frame(dc, area, colours.accent);
}

}  // namespace kebu::windows
