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
  foot_.paint(buffer.dc(), clientArea(), toWide(source_.tools().status()), stopCaption());
  frame(buffer.dc(), clientArea(), colours.border);
}

void GridControl::paintHead(HDC dc) {
  const Palette& colours = theme_->colours();
  RECT head = clientArea();
  head.bottom = geometry().headHeight();
  fill(dc, head, colours.locked);
  paintColumns(dc, [&](std::size_t column) { paintHeadOf(dc, column); });
  head.top = head.bottom - 1;
  fill(dc, head, colours.border);
}

void GridControl::paintHeadOf(HDC dc, std::size_t index) {
  const Palette& colours = theme_->colours();
  const GridSource::Column& column = source_.columns()[index];
  RECT area = toRECT(geometry_.headBounds(index));
  const auto& sorted = source_.tools().sortedBy();
  const bool isOpenCode = column.caption.empty();  // shares the next column's caption
  if (!isOpenCode) {
    RECT edge{area.right - 1, area.top + theme_->px(6), area.right, area.bottom - theme_->px(6)};
    fill(dc, edge, colours.border);
  }
  // The caption of a description stands over its code, too.
  const bool hasCode = index > 0 && source_.columns()[index - 1].caption.empty() &&
                       geometry_.isShown(index - 1) && !geometry_.isFrozen(index - 1);
  const bool codeHasMark = sorted && sorted->column + 1 == index;
  if (hasCode && !codeHasMark) area.left = toRECT(geometry_.headBounds(index - 1)).left;
  area.left += theme_->px(8);
  if (column.kind == ColumnKind::Check && !column.refusesAll) {
    const RECT box = toRECT(geometry_.tickAllBounds(index));
    checkBox(dc, handle(), box, checkStateOf(source_.tickState(index)),
             source_.isEnabled() && source_.rowCount() > 0, theme_->px(14));
    area.left = box.right + theme_->px(5);
  }
  area.right -= theme_->px(6);
  if (sorted && sorted->column == index) {
    RECT mark = area;
    mark.left = area.right - theme_->px(12);
    area.right = mark.left;
    text(dc, sorted->isDescending ? L"\u25BC" : L"\u25B2", mark, colours.accent, theme_->font(),
         DT_CENTER | DT_NOPREFIX);
  }
  const UINT align = isNumeric(column.kind) ? DT_RIGHT : DT_LEFT;
  text(dc, toWide(column.caption), area, colours.muted, theme_->strong(), DT_NOPREFIX | align);
}

void GridControl::paintColumns(HDC dc, const std::function<void(std::size_t)>& paintOne) {
  const RECT client = clientArea();
  const std::size_t count = source_.columns().size();
  const int frozen = geometry_.frozenRight();
  const int state = SaveDC(dc);
  if (frozen > geometry_.gutter()) ExcludeClipRect(dc, 0, 0, frozen, client.bottom);
  for (std::size_t i = 0; i < count; ++i) {
    if (geometry_.isShown(i) && !geometry_.isFrozen(i)) paintOne(i);
  }
  RestoreDC(dc, state);
  for (std::size_t i = 0; i < count; ++i) {
    if (geometry_.isFrozen(i)) paintOne(i);
  }
}

void GridControl::paintRow(HDC dc, std::int32_t row) {
  const Palette& colours = theme_->colours();
  RECT area = toRECT(geometry_.rowBounds(row));
  const auto [first, last] = chosenRows();
  const bool isChosen = row >= first && row <= last;
  const Colour plain = row == hotRow_ && source_.isEnabled() ? colours.hover : colours.card;
  fill(dc, area, isChosen ? colours.chosen : plain);
  paintColumns(dc, [&](std::size_t column) {
    const RECT cell = toRECT(geometry_.cellBounds(row, column));
    if (!IsRectEmpty(&cell)) paintCell(dc, row, column, cell, isChosen);
  });
  if (source_.keepsRowState()) {
    RECT mark{0, area.top, geometry_.gutter(), area.bottom};
    fill(dc, mark, isChosen ? colours.chosen : plain);
    paintRowMark(dc, mark, source_.rowState(row), isChosen);
  }
  area.top = area.bottom - 1;
  fill(dc, area, colours.line);
}

// The marks differ in their shape, too, for those who do not see the colours.
void GridControl::paintRowMark(HDC dc, const RECT& area, int state, bool isChosenRow) {
  const Palette& colours = theme_->colours();
  const Colour good = isChosenRow ? onChosen(colours, colours.good) : colours.good;
  const Colour warning = isChosenRow ? onChosen(colours, colours.warning) : colours.warning;
  if (state == completeRow) tickMark(dc, area, theme_->px(10), good);
  if (state == incompleteRow) warningMark(dc, area, theme_->px(12), warning);
}

void GridControl::paintCell(HDC dc, std::int32_t row, std::size_t column, const RECT& area,
                            bool isChosenRow) {
  const Palette& colours = theme_->colours();
  const ColumnKind kind = source_.columns()[column].kind;
  const bool locked = isChangeable(kind) && source_.isLocked(row, column);
  const bool enabled = source_.isEnabled() && !locked;
  const bool unused = source_.isUnused(row, column);
  const std::string warning = source_.warningOf(row, column);
  if ((locked || unused) && !isChosenRow) fill(dc, area, colours.locked);
  const bool isCurrentCell = row == source_.currentRow() && column == column_;
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
      text(dc, sign, glyph, onChosen(colours, colours.accent), theme_->font(),
           DT_CENTER | DT_NOPREFIX);
      inside.right = glyph.left;
    }
    const Colour ink = !warning.empty()                  ? colours.warning
                       : !source_.isEnabled() || locked  ? colours.faint
                       : kind == ColumnKind::Description ? colours.muted
                                                         : colours.text;
    const UINT align = isNumeric(kind) ? DT_RIGHT : DT_LEFT;
    text(dc, toWide(shown), inside, isChosenRow ? onChosen(colours, ink) : ink, theme_->font(),
         align | DT_NOPREFIX);
  }
  if (isCurrentCell && GetFocus() == handle()) {
    frame(dc, area, onChosen(colours, colours.accent));
  }
}

}  // namespace kebu::windows
