#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/query_editor.h"
#include "controls/simple_controls.h"
#include "windows/views/layout/metrics.h"

namespace kebu::windows::layout {

/// The place of a control and of what belongs to it.
struct Placement {
  Rect bounds;
  Rect caption;  ///< a field's caption; empty for a control without one
  Rect lookup;   ///< the button that opens the look-up; empty for a control without one
};

using Placements = std::map<const controls::Control*, Placement>;
using Rules = std::vector<controls::ResizeManager::Registration>;

/// The resize manager's rules: a control keeps its distance to these sides of the page.
enum Sides : std::int32_t { leftSide = 1, topSide = 2, rightSide = 4, bottomSide = 8 };

/// Computes the places of the controls of a page, since the models have none. Fields stand one
/// below the other, their captions in a column to the left. A description stands to the right of
/// its code. Elements of control arrays with the same index make a line of a table. Groups are
/// cards, in two columns where the page is wide enough. Controls that the resize manager lets grow
/// share the height that is left.
class PageLayout {
 public:
  PageLayout(Metrics metrics, const Rules& rules);

  /// The height that the controls need at the least.
  int naturalHeight(const std::vector<controls::Control*>& controls, int width);
  /// In an area that is not as high as naturalHeight, controls reach below it.
  Placements place(const std::vector<controls::Control*>& controls, const Rect& area);

 private:
  /// A part of the page over its whole width. Blocks stand one below the other.
  struct Block {
    int height = 0;                          ///< at the least
    int gap = 0;                             ///< above it
    bool grows = false;                      ///< takes a share of the height that is left
    bool docked = false;                     ///< stands at the lower edge when no block grows
    std::function<void(const Rect&)> place;  ///< puts its controls into the area
  };
  using Blocks = std::vector<Block>;
  using Controls = std::vector<controls::Control*>;

  static constexpr int captionColumnGap = 10;  ///< in 96ths of an inch

  std::int32_t ruleOf(const controls::Control& control) const;
  bool grows(const controls::Control& control) const;
  int captionColumn(const Controls& controls) const;
  int fieldWidth(const controls::Control& control) const;
  int checkWidth(const controls::Control& check) const;
  int buttonWidth(const controls::Control& button) const;
  /// The distance from the left edge to the fields.
  int fieldColumn() const {
    return captionColumn_ ? captionColumn_ + metrics_.px(captionColumnGap) : 0;
  }

  /// The width of a field's look-up button with the gap before it; 0 without one.
  int lookupWidth(const controls::Control& field) const;
  /// Places a field, and its look-up button to the right of it. Returns the right edge of both.
  int putField(const controls::Control& field, const Rect& bounds);

  Blocks blocksOf(const Controls& controls, int width);
  Block fieldBlock(controls::Control& field);
  /// Check boxes side by side.
  Block checksBlock(const Controls& checks);
  /// Buttons side by side, and a label in the room that they leave.
  Block lineBlock(const Controls& line);
  /// Elements of control arrays; `headed` when the captions stand above, as in a table's first
  /// line.
  Block tableLineBlock(const Controls& line, bool headed);
  Block groupBlock(controls::GroupBox& group, int width);
  /// Groups in two columns.
  Block columnsBlock(const std::vector<controls::GroupBox*>& groups, int width);
  Block wholeBlock(controls::Control& control);
  /// A check box as the heading of the control below it, which it switches on.
  Block headingBlock(controls::Control& check, controls::Control& control);
  // query_editor_layout.cpp
  Block editorBlock(controls::QueryEditor& editor, int width);
  void placeRow(const controls::QueryEditor::Row& row, const Rect& area);
  void placeValue(const controls::EditBox& box, const controls::Label& description,
                  std::size_t length, bool isList, const Rect& area);
  void placeBelow(const controls::QueryEditor& editor, const Rect& area, int warning);
  static int heightOf(const Blocks& blocks);
  static void placeBlocks(const Blocks& blocks, const Rect& area);
  void prepare(const Controls& controls, int width);

  Metrics metrics_;
  std::map<std::string, std::int32_t> rules_;
  int captionColumn_ = 0;  ///< its width, the same in all groups of the page
  Placements placements_;
};

}  // namespace kebu::windows::layout
