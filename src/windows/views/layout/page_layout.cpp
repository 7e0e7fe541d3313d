#include "windows/views/layout/page_layout.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"

namespace kebu::windows::layout {

using controls::Control;
using controls::GroupBox;

namespace {

// In 96ths of an inch.
constexpr int rowGap = 7;
constexpr int groupGap = 12;
constexpr int codeWidth = 90;
constexpr int twoColumnsFrom = 720;  // the page width from which groups stand in two columns
constexpr int leastGrid = 176;
constexpr int tableCombo = 250;
constexpr int checkMark = 22;  // a check box without its text
constexpr int dropArrow = 36;  // a combo without its text
constexpr int checkGap = 22;

constexpr int longestShort = 30;  // an edit box of at most this many characters is as wide as they

/// The ways in which a kind of control is laid out.
enum class Shape {
  Field,     ///< a box with its caption to the left
  Check,     ///< a check box: side by side with others, or above a grid as its heading
  LineItem,  ///< a button or label: side by side with others
  Group,     ///< a card with controls in it
  Whole      ///< takes the whole width, and the height that is left
};

Shape shapeOf(const Control& control) {
  using controls::ControlKind;
  switch (control.kind()) {
    case ControlKind::ComboBox:
    case ControlKind::EditBox:
      return Shape::Field;
    case ControlKind::CheckBox:
      return Shape::Check;
    case ControlKind::Button:
    case ControlKind::Label:
      return Shape::LineItem;
    case ControlKind::GroupBox:
    case ControlKind::QueryEditor:
      return Shape::Group;
    case ControlKind::QueryGrid:
    case ControlKind::Sheet:
      return Shape::Whole;
    // None of these stands on a page.
    case ControlKind::Form:
    case ControlKind::MdiContainer:
    case ControlKind::NavigatorBar:
    case ControlKind::NoticeList:
    case ControlKind::ProgressBar:
    case ControlKind::RecordFrame:
    case ControlKind::ResizeManager:
    case ControlKind::SideBar:
    case ControlKind::StatusBar:
    case ControlKind::TitleBar:
      return Shape::Whole;
  }
  return Shape::Whole;
}

template <Shape shape>
bool is(const Control& control) {
  return shapeOf(control) == shape;
}

template <class Kind>
bool isA(const Control& control) {
  return controls::as<Kind>(control) != nullptr;
}

const Control* descriptionOf(const Control& control) {
  const auto* box = controls::as<controls::EditBox>(control);
  return box ? box->description() : nullptr;
}

/// "(2)" of "TXT_COD(2)", an element of a control array; "" for other controls.
std::string elementOf(const Control& control) {
  const std::string name = control.Name();
  const std::size_t open = name.find('(');
  return open == std::string::npos || name.back() != ')' ? "" : name.substr(open);
}

/// How many fields from `first` on are elements of control arrays with the same index. They are one
/// line of a table.
std::size_t lineLength(const std::vector<Control*>& controls, std::size_t first) {
  const std::string element = elementOf(*controls[first]);
  if (element.empty()) return 1;
  std::size_t end = first;
  while (end < controls.size() && is<Shape::Field>(*controls[end]) &&
         elementOf(*controls[end]) == element) {
    ++end;
  }
  return std::max<std::size_t>(end - first, 1);
}

bool holdsAnythingShown(const GroupBox& group) {
  return std::ranges::any_of(group.children(), &Control::isVisible);
}

/// Keeps to the lower edge only, and so moves down with it.
bool isDocked(std::int32_t rule) {
  return (rule & bottomSide) && !(rule & topSide);
}

}  // namespace

PageLayout::PageLayout(Metrics metrics, const Rules& rules) : metrics_(std::move(metrics)) {
  for (const auto& rule : rules) rules_[toUpperAscii(rule.control)] = rule.rule;
}

std::int32_t PageLayout::ruleOf(const Control& control) const {
  const auto registered = rules_.find(toUpperAscii(control.Name()));
  if (registered != rules_.end()) return registered->second;
  constexpr std::int32_t stretched = leftSide | topSide | rightSide;
  if (const auto* group = controls::as<GroupBox>(control)) {
    const bool inner =
        isA<controls::QueryEditor>(control) ||
        std::ranges::any_of(group->children(), [&](Control* child) { return grows(*child); });
    return inner ? stretched | bottomSide : stretched;
  }
  return is<Shape::Whole>(control) ? stretched | bottomSide : leftSide | topSide;
}

bool PageLayout::grows(const Control& control) const {
  constexpr std::int32_t both = topSide | bottomSide;
  return control.isVisible() && (ruleOf(control) & both) == both && !is<Shape::Field>(control) &&
         !is<Shape::LineItem>(control);
}

int PageLayout::captionColumn(const Controls& controls) const {
  int widest = 0;
  const Control* before = nullptr;
  for (const Control* control : controls) {
    if (!control->isVisible()) continue;
    const bool isHeaded =
        before && !elementOf(*control).empty() && elementOf(*control) == elementOf(*before);
    before = control;
    if (isHeaded) continue;
    if (const auto* group = controls::as<GroupBox>(*control)) {
      widest = std::max(widest, captionColumn(group->children()));
    } else if (is<Shape::Field>(*control) && !control->caption().empty()) {
      widest = std::max(widest, metrics_.textWidth(control->caption() + " *"));
    }
  }
  return widest;
}

int PageLayout::fieldWidth(const Control& control) const {
  const auto* box = controls::as<controls::EditBox>(control);
  if (box && (box->hasLookup() || box->description())) return metrics_.px(codeWidth);
  if (box && box->maxLength() > 0 && box->maxLength() <= longestShort) {
    const std::string digits(std::max<std::size_t>(box->maxLength(), 4), '0');
    return metrics_.textWidth(digits) + metrics_.px(16);
  }
  int width = metrics_.px(widestField);
  if (const auto* combo = controls::as<controls::ComboBox>(control)) {
    for (const auto& row : combo->rows()) {
      width = std::max(width, metrics_.textWidth(row.caption) + metrics_.px(dropArrow));
    }
  }
  return width;
}

int PageLayout::checkWidth(const Control& check) const {
  return metrics_.textWidth(check.caption()) + metrics_.px(checkMark);
}

int PageLayout::buttonWidth(const Control& button) const {
  return std::max(metrics_.px(100), metrics_.textWidth(button.caption()) + metrics_.px(32));
}

int PageLayout::lookupWidth(const Control& field) const {
  const auto* box = controls::as<controls::EditBox>(field);
  return box && box->hasLookup() ? metrics_.px(lookupPart) : 0;
}

int PageLayout::putField(const Control& field, const Rect& bounds) {
  Placement& placement = placements_[&field];
  placement.bounds = bounds;
  const int button = lookupWidth(field);
  if (button == 0) return bounds.right();
  const int gap = metrics_.px(2);
  placement.lookup = {bounds.right() + gap, bounds.top, button - gap, bounds.height};
  return bounds.right() + button;
}

PageLayout::Block PageLayout::fieldBlock(Control& field) {
  const auto* const box = controls::as<controls::EditBox>(field);
  const int lines = box ? box->lines() : 1;
  const auto place = [this, &field, lines](const Rect& area) {
    const Rect right = area.from(area.left + fieldColumn());
    if (captionColumn_) {
      placements_[&field].caption = {area.left, area.top, captionColumn_, metrics_.fieldHeight()};
    }
    const int width = is<Shape::Check>(field) || lines > 1
                          ? right.width
                          : std::min(fieldWidth(field), right.width - lookupWidth(field));
    const int end = putField(field, {right.left, area.top, width, area.height});
    if (const Control* description = descriptionOf(field)) {
      placements_[description].bounds = area.from(end + metrics_.px(partGap));
    }
  };
  return {.height = metrics_.fieldHeight() + (lines - 1) * metrics_.lineHeight,
          .gap = metrics_.px(rowGap),
          .place = place};
}

PageLayout::Block PageLayout::checksBlock(const Controls& checks) {
  const auto place = [this, checks](const Rect& area) {
    int left = area.left + fieldColumn();
    for (const Control* check : checks) {
      placements_[check].bounds = {left, area.top, checkWidth(*check), area.height};
      left += checkWidth(*check) + metrics_.px(checkGap);
    }
  };
  return {.height = metrics_.fieldHeight(), .gap = metrics_.px(rowGap), .place = place};
}

PageLayout::Block PageLayout::lineBlock(const Controls& line) {
  const auto place = [this, line](const Rect& area) {
    int left = area.left;
    int right = area.right();
    const int gap = metrics_.px(partGap);
    const Control* label = nullptr;
    for (const Control* control : line) {
      if (isA<controls::Label>(*control)) {
        label = control;
        continue;
      }
      const int width = buttonWidth(*control);
      const std::int32_t rule = ruleOf(*control);
      if ((rule & rightSide) && !(rule & leftSide)) {
        right -= width;
        placements_[control].bounds = {right, area.top, width, area.height};
        right -= gap;
      } else {
        placements_[control].bounds = {left, area.top, width, area.height};
        left += width + gap;
      }
    }
    // The label gets what the buttons leave.
    if (label) placements_[label].bounds = {left, area.top, std::max(right - left, 0), area.height};
  };
  const bool docked = std::ranges::all_of(
      line, [this](const Control* control) { return isDocked(ruleOf(*control)); });
  return {.height = metrics_.fieldHeight() + metrics_.px(2),
          .gap = metrics_.px(rowGap),
          .docked = docked,
          .place = place};
}

// The first field's caption stands to the left of its line. Those of the other fields stand above
// the first line of the table, as the heads of its columns.
PageLayout::Block PageLayout::tableLineBlock(const Controls& line, bool headed) {
  const int heading = headed ? metrics_.lineHeight + metrics_.px(4) : 0;
  const auto place = [this, line, heading](const Rect& area) {
    const int gap = metrics_.px(partGap);
    const int top = area.top + heading;
    const int height = area.height - heading;
    int left = area.left + fieldColumn();
    placements_[line.front()].caption = {area.left, top, captionColumn_, height};
    for (const Control* control : line) {
      const bool isLast = control == line.back();
      const int room = std::max(area.right() - left, 0);
      const int button = lookupWidth(*control);
      int width = fieldWidth(*control);
      if (controls::as<controls::ComboBox>(*control)) {
        width = std::min(metrics_.px(tableCombo), room * 2 / 5);
      } else if (!isLast) {
        width = std::max(width, metrics_.textWidth(control->caption()) + gap - button);
      }
      width = std::min(width, std::max(room - button, 0));
      const int end = putField(*control, {left, top, width, height});
      if (heading && control != line.front()) {
        placements_[control].caption = {left, area.top, end - left, heading};
      }
      left = end + gap;
    }
  };
  return {.height = heading + metrics_.fieldHeight(), .gap = metrics_.px(rowGap), .place = place};
}

PageLayout::Block PageLayout::wholeBlock(Control& control) {
  return {.height = metrics_.px(leastGrid),
          .gap = metrics_.px(groupGap),
          .grows = grows(control),
          .place = [this, &control](const Rect& area) { placements_[&control].bounds = area; }};
}

PageLayout::Block PageLayout::headingBlock(Control& check, Control& control) {
  Block block = wholeBlock(control);
  const int heading = metrics_.fieldHeight();
  const int gap = metrics_.px(partGap);
  block.height += heading + gap;
  block.place = [this, &check, &control, heading, gap](const Rect& area) {
    placements_[&check].bounds = {area.left, area.top, area.width, heading};
    const int above = heading + gap;
    placements_[&control].bounds = {area.left, area.top + above, area.width,
                                    std::max(area.height - above, 0)};
  };
  return block;
}

PageLayout::Block PageLayout::groupBlock(GroupBox& group, int width) {
  const int inset = metrics_.px(padding);
  const int title =
      group.caption().empty() ? inset : metrics_.lineHeight + metrics_.px(padding) + inset;
  const Blocks inner = blocksOf(group.children(), width - 2 * inset);
  const auto place = [this, &group, inner, title, inset](const Rect& area) {
    placements_[&group].bounds = area;
    placeBlocks(inner, {area.left + inset, area.top + title, area.width - 2 * inset,
                        area.height - title - inset});
  };
  return {.height = title + heightOf(inner) + inset,
          .gap = metrics_.px(groupGap),
          .grows = grows(group),
          .docked = isDocked(ruleOf(group)),
          .place = place};
}

PageLayout::Block PageLayout::columnsBlock(const std::vector<GroupBox*>& groups, int width) {
  const int gap = metrics_.px(groupGap);
  const int columnWidth = (width - gap) / 2;
  Blocks all;
  for (GroupBox* group : groups) all.push_back(groupBlock(*group, columnWidth));
  // The groups keep their order: the first column ends where the higher of both is lowest.
  std::size_t best = 1;
  int lowest = -1;
  for (std::size_t at = 1; at < all.size(); ++at) {
    const auto split = all.begin() + static_cast<std::ptrdiff_t>(at);
    const int height =
        std::max(heightOf(Blocks(all.begin(), split)), heightOf(Blocks(split, all.end())));
    if (lowest < 0 || height < lowest) {
      lowest = height;
      best = at;
    }
  }
  const auto split = all.begin() + static_cast<std::ptrdiff_t>(best);
  const auto place = [first = Blocks(all.begin(), split), second = Blocks(split, all.end()), gap,
                      columnWidth](const Rect& area) {
    placeBlocks(first, {area.left, area.top, columnWidth, area.height});
    placeBlocks(second, {area.left + columnWidth + gap, area.top, columnWidth, area.height});
  };
  return {.height = lowest, .gap = gap, .place = place};
}

PageLayout::Blocks PageLayout::blocksOf(const Controls& controls, int width) {
  std::vector<const Control*> descriptions;
  for (const Control* control : controls) descriptions.push_back(descriptionOf(*control));
  Controls shown;
  for (Control* control : controls) {
    const auto* group = controls::as<GroupBox>(*control);
    const bool isDescription = std::ranges::find(descriptions, control) != descriptions.end();
    if (control->isVisible() && !isDescription && (!group || holdsAnythingShown(*group))) {
      shown.push_back(control);
    }
  }

  Blocks blocks;
  bool inTable = false;
  for (std::size_t i = 0; i < shown.size();) {
    if (const std::size_t length = lineLength(shown, i); length > 1) {
      const auto from = shown.begin() + static_cast<std::ptrdiff_t>(i);
      blocks.push_back(
          tableLineBlock(Controls(from, from + static_cast<std::ptrdiff_t>(length)), !inTable));
      inTable = true;
      i += length;
      continue;
    }
    inTable = false;
    Control& control = *shown[i++];
    if (auto* editor = controls::as<controls::QueryEditor>(control)) {
      blocks.push_back(editorBlock(*editor, width));
    } else if (auto* group = controls::as<GroupBox>(control)) {
      std::vector<GroupBox*> run{group};
      const auto sideBySide = [&](const GroupBox& box) {
        return !grows(box) && !isDocked(ruleOf(box));
      };
      while (sideBySide(*group) && i < shown.size()) {
        auto* next = controls::as<GroupBox>(*shown[i]);
        if (!next || isA<controls::QueryEditor>(*next) || !sideBySide(*next)) break;
        run.push_back(next);
        ++i;
      }
      if (run.size() > 1 && width >= metrics_.px(twoColumnsFrom)) {
        blocks.push_back(columnsBlock(run, width));
      } else {
        for (GroupBox* each : run) blocks.push_back(groupBlock(*each, width));
      }
    } else if (is<Shape::LineItem>(control)) {
      Controls line{&control};
      const auto isLabel = isA<controls::Label>;
      bool hasLabel = isLabel(control);
      while (i < shown.size() && is<Shape::LineItem>(*shown[i]) &&
             !(hasLabel && isLabel(*shown[i]))) {
        hasLabel = hasLabel || isLabel(*shown[i]);
        line.push_back(shown[i++]);
      }
      blocks.push_back(lineBlock(line));
    } else if (is<Shape::Check>(control) && i < shown.size() && is<Shape::Whole>(*shown[i])) {
      blocks.push_back(headingBlock(control, *shown[i++]));
    } else if (is<Shape::Check>(control)) {
      Controls checks{&control};
      int right = fieldColumn() + checkWidth(control);
      while (i < shown.size() && is<Shape::Check>(*shown[i]) &&
             !(i + 1 < shown.size() && is<Shape::Whole>(*shown[i + 1]))) {
        right += metrics_.px(checkGap) + checkWidth(*shown[i]);
        if (right > width) break;
        checks.push_back(shown[i++]);
      }
      blocks.push_back(checks.size() > 1 ? checksBlock(checks) : fieldBlock(control));
    } else if (is<Shape::Field>(control)) {
      blocks.push_back(fieldBlock(control));
    } else {
      blocks.push_back(wholeBlock(control));
    }
  }
  return blocks;
}

int PageLayout::heightOf(const Blocks& blocks) {
  int height = 0;
  for (const Block& block : blocks) height += block.height + block.gap;
  return blocks.empty() ? 0 : height - blocks.front().gap;
}

void PageLayout::placeBlocks(const Blocks& blocks, const Rect& area) {
  int left = std::max(area.height - heightOf(blocks), 0);
  auto growing = std::ranges::count(blocks, true, &Block::grows);
  int top = area.top;
  for (const Block& block : blocks) {
    if (&block != blocks.data()) top += block.gap;
    int height = block.height;
    if (block.grows) {
      const int share = left / static_cast<int>(growing--);
      height += share;
      left -= share;
    } else if (block.docked && growing == 0) {
      top += std::exchange(left, 0);
    }
    block.place({area.left, top, area.width, height});
    top += height;
  }
}

void PageLayout::prepare(const Controls& controls, int width) {
  placements_.clear();
  const bool hasGroups =
      std::ranges::any_of(controls, [](const Control* control) { return isA<GroupBox>(*control); });
  const int column = hasGroups && width >= metrics_.px(twoColumnsFrom) ? width / 2 : width;
  captionColumn_ = std::min(captionColumn(controls), column * 45 / 100);
}

int PageLayout::naturalHeight(const Controls& controls, int width) {
  prepare(controls, width);
  return heightOf(blocksOf(controls, width));
}

Placements PageLayout::place(const Controls& controls, const Rect& area) {
  prepare(controls, area.width);
  placeBlocks(blocksOf(controls, area.width), area);
  return std::move(placements_);
}

}  // namespace kebu::windows::layout
