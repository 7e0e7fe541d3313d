#include <algorithm>

#include "windows/views/layout/page_layout.h"

// The layout of a query editor: a line for each field, with its operator and one or two values, in
// two columns where there is room.
// Below the lines stand the warning, the condition in words and as composed text, and "Conta" with
// its answer.
namespace kebu::windows::layout {

using controls::QueryEditor;

namespace {

// In 96ths of an inch.
constexpr int rowGap = 5;
constexpr int blockGap = 12;
constexpr int operatorWidth = 118;
constexpr int codeWidth = 124;
constexpr int edges = 16;
constexpr int twoColumnsFrom = 1040;  // the editor's width
constexpr int columnGap = 28;
constexpr int mostLines = 6;  // of the composed text, even where there is room for more

}  // namespace

PageLayout::Block PageLayout::editorBlock(QueryEditor& editor, int width) {
  const std::size_t columns = width >= metrics_.px(twoColumnsFrom) ? 2 : 1;
  const std::size_t lines = (editor.fieldCount() + columns - 1) / columns;
  const int row = metrics_.fieldHeight() + metrics_.px(rowGap);
  const int inset = metrics_.px(padding);
  const int text = editor.composedText().lines() * metrics_.lineHeight + metrics_.px(8);
  const int warning = editor.warning().isVisible() ? row : 0;
  const int below = warning + metrics_.px(blockGap) + row + text + metrics_.px(rowGap) +
                    metrics_.fieldHeight() + metrics_.px(2);
  const auto place = [this, &editor, row, inset, below, warning, columns, lines](const Rect& area) {
    placements_[&editor].bounds = area;
    const Rect inner{area.left + inset, area.top + inset, area.width - 2 * inset,
                     area.height - 2 * inset};
    if (editor.fieldCount() == 0) return;
    const int gap = metrics_.px(columnGap);
    const int count = static_cast<int>(columns);
    const int column = (inner.width - (count - 1) * gap) / count;
    // The order goes down the first column, and then down the second one.
    for (std::size_t field = 0; field < editor.fieldCount(); ++field) {
      const int left = inner.left + static_cast<int>(field / lines) * (column + gap);
      const int down = inner.top + static_cast<int>(field % lines) * row;
      placeRow(editor.row(field), {left, down, column, metrics_.fieldHeight()});
    }
    const int top = inner.top + static_cast<int>(lines) * row;
    // The composed text gets what is left.
    placeBelow(editor, {inner.left, top, inner.width, std::max(inner.bottom() - top, below)},
               warning);
  };
  return {.height = 2 * inset + static_cast<int>(lines) * row + below,
          .gap = metrics_.px(blockGap),
          .grows = grows(editor),
          .place = place};
}

void PageLayout::placeRow(const QueryEditor::Row& row, const Rect& area) {
  const int left = area.left + fieldColumn();
  const int combo = metrics_.px(operatorWidth);
  placements_[&row.op] = {
      {left, area.top, combo, area.height}, {area.left, area.top, captionColumn_, area.height}, {}};
  const int from = left + combo + metrics_.px(partGap);
  const int room = std::max(area.right() - from, 0);
  const bool isList = row.shown == QueryOperator::OneOf;
  const bool isRange = row.second.isVisible();
  const int width = isRange ? (room - metrics_.px(blockGap)) / 2 : room;
  if (row.first.isVisible()) {
    placeValue(row.first, row.firstDescription, row.field.length, isList,
               {from, area.top, width, area.height});
  }
  if (isRange) {
    placeValue(row.second, row.secondDescription, row.field.length, false,
               {area.right() - width, area.top, width, area.height});
  }
}

// A value, its look-up button and its description share the area.
void PageLayout::placeValue(const controls::EditBox& box, const controls::Label& description,
                            std::size_t length, bool isList, const Rect& area) {
  const int room = std::max(area.width - lookupWidth(box), 0);
  const int wanted = std::clamp(metrics_.textWidth(std::string(length, '0')) + metrics_.px(edges),
                                metrics_.px(codeWidth), metrics_.px(widestField));
  const int width = isList ? room : std::min(wanted, room);
  const int end = putField(box, {area.left, area.top, width, area.height});
  if (!box.description() || isList) return;
  placements_[&description].bounds = area.from(end + metrics_.px(partGap));
}

void PageLayout::placeBelow(const QueryEditor& editor, const Rect& area, int warning) {
  const int left = area.left + fieldColumn();
  const int width = std::max(area.right() - left, 0);
  int top = area.top;
  if (warning > 0) {
    placements_[&editor.warning()].bounds = {left, top, width, metrics_.fieldHeight()};
    top += warning;
  }
  const int button = metrics_.fieldHeight() + metrics_.px(2);
  top += metrics_.px(blockGap);
  placements_[&editor.condition()].bounds = {left, top, width, metrics_.fieldHeight()};
  top += metrics_.fieldHeight() + metrics_.px(rowGap);
  const int most = mostLines * metrics_.lineHeight + metrics_.px(8);
  const int height = std::min(area.bottom() - top - button - metrics_.px(rowGap), most);
  placements_[&editor.composedText()] = {
      {left, top, width, height}, {area.left, top, captionColumn_, metrics_.fieldHeight()}, {}};
  const int line = top + height + metrics_.px(rowGap);
  const int buttonRight = left + buttonWidth(editor.countButton());
  placements_[&editor.countButton()].bounds = {left, line, buttonRight - left, button};
  const int answerLeft = buttonRight + metrics_.px(captionColumnGap);
  placements_[&editor.countAnswer()].bounds = {answerLeft, line,
                                               std::max(area.right() - answerLeft, 0), button};
}

}  // namespace kebu::windows::layout
