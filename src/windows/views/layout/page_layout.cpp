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
constexpr int longestShort = 30;  // characters of a box that is not stretched
constexpr int twoColumnsFrom = 720;
constexpr int leastGrid = 176;
constexpr int tableCombo = 250;
constexpr int checkMark = 22;  // the box of a check box and what is between it and its text
constexpr int dropArrow = 36;  // what a combo needs beside its text
constexpr int checkGap = 22;

/// How a page takes a kind of control.
enum class Shape {
  Field,     ///< a box with its caption before it
  Check,     ///< one of a line of check boxes, or the heading of what follows
  LineItem,  ///< one of a line of buttons with a text
  Group,     ///< a card around others
  Whole      ///< takes the whole width, and room in height
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
      return Shape::Whole;
    // None of these stands on a page.
    case ControlKind::Form:
    case ControlKind::MdiContainer:
    case ControlKind::NavigatorBar:
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

bool isCheck(const Control& control) {
  return shapeOf(control) == Shape::Check;
}

bool isField(const Control& control) {
  return shapeOf(control) == Shape::Field;
}

bool isLineItem(const Control& control) {
  return shapeOf(control) == Shape::LineItem;
}

bool isWhole(const Control& control) {
  return shapeOf(control) == Shape::Whole;
}

bool isLabel(const Control& control) {
  return control.kind() == controls::ControlKind::Label;
}

bool isEditor(const Control& control) {
  return control.kind() == controls::ControlKind::QueryEditor;
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

/// How many fields from `first` on are the elements of different arrays with the same index.
std::size_t lineLength(const std::vector<Control*>& controls, std::size_t first) {
  const std::string element = elementOf(*controls[first]);
  if (element.empty()) return 1;
  std::size_t end = first;
  while (end < controls.size() && isField(*controls[end]) && elementOf(*controls[end]) == element) {
    ++end;
  }
  return std::max<std::size_t>(end - first, 1);
}

bool holdsAnythingShown(const GroupBox& group) {
  return std::any_of(group.children().begin(), group.children().end(),
                     [](const Control* child) { return child->isVisible(); });
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
        isEditor(control) || std::any_of(group->children().begin(), group->children().end(),
                                         [&](const Control* child) { return grows(*child); });
    return inner ? stretched | bottomSide : stretched;
  }
  // What is none of the known small controls wants room: a grid, an editor.
  const bool isSmall = isField(control) || isLineItem(control) || isCheck(control);
  return isSmall ? leftSide | topSide : stretched | bottomSide;
}

bool PageLayout::grows(const Control& control) const {
  constexpr std::int32_t both = topSide | bottomSide;
  return control.isVisible() && (ruleOf(control) & both) == both && !isField(control) &&
         !isLineItem(control);
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
    } else if (isField(*control) && !control->caption().empty()) {
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
  Block block;
  block.height = metrics_.fieldHeight();
  block.gap = metrics_.px(rowGap);
  block.place = [this, &field](const Rect& area) {
    const int left = area.left + fieldColumn();
    const int room = std::max(area.right() - left, 0);
    if (captionColumn_) {
      placements_[&field].caption = {area.left, area.top, captionColumn_, area.height};
    }
    const int width =
        isCheck(field) ? room : std::min(fieldWidth(field), room - lookupWidth(field));
    const int end = putField(field, {left, area.top, width, area.height});
    if (const Control* description = descriptionOf(field)) {
      const int from = end + metrics_.px(partGap);
      placements_[description].bounds = {from, area.top, std::max(area.right() - from, 0),
                                         area.height};
    }
  };
  return block;
}

PageLayout::Block PageLayout::checksBlock(const Controls& checks) {
  Block block;
  block.height = metrics_.fieldHeight();
  block.gap = metrics_.px(rowGap);
  block.place = [this, checks](const Rect& area) {
    int left = area.left + fieldColumn();
    for (const Control* check : checks) {
      placements_[check].bounds = {left, area.top, checkWidth(*check), area.height};
      left += checkWidth(*check) + metrics_.px(checkGap);
    }
  };
  return block;
}

PageLayout::Block PageLayout::lineBlock(const Controls& line) {
  Block block;
  block.height = metrics_.fieldHeight() + metrics_.px(2);
  block.gap = metrics_.px(rowGap);
  block.docked = std::all_of(line.begin(), line.end(), [this](const Control* control) {
    const std::int32_t rule = ruleOf(*control);
    return (rule & bottomSide) && !(rule & topSide);
  });
  block.place = [this, line](const Rect& area) {
    int left = area.left;
    int right = area.right();
    const int gap = metrics_.px(partGap);
    for (const Control* control : line) {
      if (isLabel(*control)) continue;
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
    for (const Control* control : line) {
      if (isLabel(*control)) {
        placements_[control].bounds = {left, area.top, std::max(right - left, 0), area.height};
      }
    }
  };
  return block;
}

// The first field's caption stands before the line, the others' head their columns.
PageLayout::Block PageLayout::tableLineBlock(const Controls& line, bool headed) {
  const int heading = headed ? metrics_.lineHeight + metrics_.px(4) : 0;
  Block block;
  block.height = heading + metrics_.fieldHeight();
  block.gap = metrics_.px(rowGap);
  block.place = [this, line, heading](const Rect& area) {
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
  return block;
}

PageLayout::Block PageLayout::wholeBlock(Control& control) {
  Block block;
  block.height = metrics_.px(leastGrid);
  block.gap = metrics_.px(groupGap);
  block.grows = grows(control);
  block.place = [this, &control](const Rect& area) { placements_[&control].bounds = area; };
  return block;
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
  const std::int32_t rule = ruleOf(group);
  Block block;
  block.height = title + heightOf(inner) + inset;
  block.gap = metrics_.px(groupGap);
  block.grows = grows(group);
  block.docked = (rule & bottomSide) && !(rule & topSide);
  block.place = [this, &group, inner, title, inset](const Rect& area) {
    placements_[&group].bounds = area;
    placeBlocks(inner, {area.left + inset, area.top + title, area.width - 2 * inset,
                        area.height - title - inset});
  };
  return block;
}

PageLayout::Block PageLayout::columnsBlock(const std::vector<GroupBox*>& groups, int width) {
  const int gap = metrics_.px(groupGap);
  const int columnWidth = (width - gap) / 2;
  Blocks all;
  for (GroupBox* group : groups) all.push_back(groupBlock(*group, columnWidth));
  // The break that leaves both columns as low as can be, in the given order.
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
  Block block;
  block.height = lowest;
  block.gap = gap;
  block.place = [first = Blocks(all.begin(), split), second = Blocks(split, all.end()), gap,
                 columnWidth](const Rect& area) {
    placeBlocks(first, {area.left, area.top, columnWidth, area.height});
    placeBlocks(second, {area.left + columnWidth + gap, area.top, columnWidth, area.height});
  };
  return block;
}

PageLayout::Blocks PageLayout::blocksOf(const Controls& controls, int width) {
  std::vector<const Control*> descriptions;
  for (const Control* control : controls) descriptions.push_back(descriptionOf(*control));
  Controls shown;
  for (Control* control : controls) {
    const auto* group = controls::as<GroupBox>(*control);
    const bool isDescription =
        std::find(descriptions.begin(), descriptions.end(), control) != descriptions.end();
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
      blocks.push_back(editorBlock(*editor));
    } else if (auto* group = controls::as<GroupBox>(control)) {
      std::vector<GroupBox*> run{group};
      const auto sideBySide = [&](const GroupBox& box) {
        const std::int32_t rule = ruleOf(box);
        return !grows(box) && !((rule & bottomSide) && !(rule & topSide));
      };
      while (sideBySide(*group) && i < shown.size()) {
        auto* next = controls::as<GroupBox>(*shown[i]);
        if (!next || isEditor(*next) || !sideBySide(*next)) break;
        run.push_back(next);
        ++i;
      }
      if (run.size() > 1 && width >= metrics_.px(twoColumnsFrom)) {
        blocks.push_back(columnsBlock(run, width));
      } else {
        for (GroupBox* each : run) blocks.push_back(groupBlock(*each, width));
      }
    } else if (isLineItem(control)) {
      Controls line{&control};
      bool hasLabel = isLabel(control);
      while (i < shown.size() && isLineItem(*shown[i]) && !(hasLabel && isLabel(*shown[i]))) {
        hasLabel = hasLabel || isLabel(*shown[i]);
        line.push_back(shown[i++]);
      }
      blocks.push_back(lineBlock(line));
    } else if (isCheck(control) && i < shown.size() && isWhole(*shown[i])) {
      blocks.push_back(headingBlock(control, *shown[i++]));
    } else if (isCheck(control)) {
      Controls checks{&control};
      int right = fieldColumn() + checkWidth(control);
      while (i < shown.size() && isCheck(*shown[i]) &&
             !(i + 1 < shown.size() && isWhole(*shown[i + 1]))) {
        right += metrics_.px(checkGap) + checkWidth(*shown[i]);
        if (right > width) break;
        checks.push_back(shown[i++]);
      }
      blocks.push_back(checks.size() > 1 ? checksBlock(checks) : fieldBlock(control));
    } else if (isField(control)) {
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
  auto growing = static_cast<int>(
      std::count_if(blocks.begin(), blocks.end(), [](const Block& block) { return block.grows; }));
  int top = area.top;
  for (const Block& block : blocks) {
    if (&block != blocks.data()) top += block.gap;
    int height = block.height;
    if (block.grows) {
      const int share = left / growing--;
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
  const bool hasGroups = std::any_of(controls.begin(), controls.end(), [](const Control* control) {
    return controls::as<GroupBox>(*control) != nullptr;
  });
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
