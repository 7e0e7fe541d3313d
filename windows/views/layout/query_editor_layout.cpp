#include <algorithm>

#include "windows/views/layout/page_layout.h"

// A query editor: a line for each field, its operator, and a slot for each of
// its values with look-up button and description; below them what comes of it.
namespace kebu::windows::layout {

using controls::QueryEditor;

namespace {

// In 96ths of an inch.
constexpr int rowGap = 5;
constexpr int blockGap = 12;
constexpr int padding = 14;
constexpr int captionGap = 10;
constexpr int partGap = 6;
constexpr int operatorWidth = 118;
constexpr int codeWidth = 120;
constexpr int lookupWidth = 26;
constexpr int widestValue = 440;
constexpr int edges = 16;
constexpr int mostLines = 6;  // of the composed text, however much room there is

/// Where a value goes that has `area` for itself and what belongs to it.
struct Slot {
  const Metrics& metrics;
  Placements& placements;
  Rect area;

  void put(const controls::EditBox& box, const controls::Label& description, std::size_t length,
           bool isList) const {
    Placement& place = placements[&box];
    const bool hasDescription = box.description() && !isList;
    const int button = box.hasLookup() ? metrics.px(lookupWidth) : 0;
    const int room = std::max(area.width - button, 0);
    const int wanted = std::clamp(metrics.textWidth(std::string(length, '0')) + metrics.px(edges),
                                  metrics.px(codeWidth), metrics.px(widestValue));
    const int width = isList ? room : std::min(wanted, room);
    place.bounds = {area.left, area.top, width, area.height};
    if (button) {
      place.lookup = {place.bounds.right() + metrics.px(2), area.top, button - metrics.px(2),
                      area.height};
    }
    if (!hasDescription) return;
    const int from = area.left + width + button + metrics.px(partGap);
    placements[&description].bounds = {from, area.top, std::max(area.right() - from, 0),
                                       area.height};
  }
};

}  // namespace

PageLayout::Block PageLayout::editorBlock(QueryEditor& editor) {
  const int row = metrics_.fieldHeight() + metrics_.px(rowGap);
  const int inset = metrics_.px(padding);
  const int text = editor.composedText().lines() * metrics_.lineHeight + metrics_.px(8);
  const int warning = editor.warning().isVisible() ? row : 0;
  const int below = warning + metrics_.px(blockGap) + text + metrics_.px(rowGap) +
                    metrics_.fieldHeight() + metrics_.px(2);
  Block block;
  block.height = 2 * inset + static_cast<int>(editor.fieldCount()) * row + below;
  block.gap = metrics_.px(blockGap);
  block.grows = grows(editor);
  block.place = [this, &editor, row, inset, below, warning](const Rect& area) {
    placements_[&editor].bounds = area;
    const Rect inner{area.left + inset, area.top + inset, area.width - 2 * inset,
                     area.height - 2 * inset};
    int top = inner.top;
    for (const auto& each : editor.rows()) {
      placeRow(*each, {inner.left, top, inner.width, metrics_.fieldHeight()});
      top += row;
    }
    if (editor.fieldCount() == 0) return;
    // The composed text gets what is left.
    placeBelow(editor, {inner.left, top, inner.width, std::max(inner.bottom() - top, below)},
               warning);
  };
  return block;
}

void PageLayout::placeRow(const QueryEditor::Row& row, const Rect& area) {
  const int left = area.left + captionColumn_ + metrics_.px(captionGap);
  const int combo = metrics_.px(operatorWidth);
  placements_[&row.op] = {
      {left, area.top, combo, area.height}, {area.left, area.top, captionColumn_, area.height}, {}};
  const int from = left + combo + metrics_.px(partGap);
  const int room = std::max(area.right() - from, 0);
  const bool isList = row.shown == controls::QueryOperator::OneOf;
  const bool isRange = row.second.isVisible();
  const int width = isRange ? (room - metrics_.px(blockGap)) / 2 : room;
  if (row.first.isVisible()) {
    Slot{metrics_, placements_, {from, area.top, width, area.height}}.put(
        row.first, row.firstDescription, row.field.length, isList);
  }
  if (isRange) {
    Slot{metrics_, placements_, {area.right() - width, area.top, width, area.height}}.put(
        row.second, row.secondDescription, row.field.length, false);
  }
}

void PageLayout::placeBelow(const QueryEditor& editor, const Rect& area, int warning) {
  const int left = area.left + captionColumn_ + metrics_.px(captionGap);
  const int width = std::max(area.right() - left, 0);
  int top = area.top;
  if (warning > 0) {
    placements_[&editor.warning()].bounds = {left, top, width, metrics_.fieldHeight()};
    top += warning;
  }
  const int button = metrics_.fieldHeight() + metrics_.px(2);
  top += metrics_.px(blockGap);
  const int most = mostLines * metrics_.lineHeight + metrics_.px(8);
  const int height = std::min(area.bottom() - top - button - metrics_.px(rowGap), most);
  placements_[&editor.composedText()] = {
      {left, top, width, height}, {area.left, top, captionColumn_, metrics_.fieldHeight()}, {}};
  const int line = top + height + metrics_.px(rowGap);
  const int buttonRight = left + buttonWidth(editor.countButton());
  placements_[&editor.countButton()].bounds = {left, line, buttonRight - left, button};
  const int answerLeft = buttonRight + metrics_.px(captionGap);
  placements_[&editor.countAnswer()].bounds = {answerLeft, line,
                                               std::max(area.right() - answerLeft, 0), button};
}

}  // namespace kebu::windows::layout
