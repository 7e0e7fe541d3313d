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

/// Where a control goes, and what stands with it.
struct Placement {
  Rect bounds;
  Rect caption;  ///< of a field, beside it; empty when it has none
  Rect lookup;   ///< the button that opens a look-up; empty when there is none
};

using Placements = std::map<const controls::Control*, Placement>;
using Rules = std::vector<controls::ResizeManager::Registration>;

/// Sides that a control keeps to, as the resize manager counts them.
enum Sides : std::int32_t { leftSide = 1, topSide = 2, rightSide = 4, bottomSide = 8 };

/// Finds the places of the controls of a page, which themselves carry none:
/// fields one below the other with their captions in a column, descriptions
/// beside their codes, the elements of control arrays in the lines of a table,
/// groups as cards, in two columns where there is room, and what the resize
/// manager lets grow filling what is left.
class PageLayout {
 public:
  PageLayout(Metrics metrics, const Rules& rules);

  /// The height that the controls need at the least.
  int naturalHeight(const std::vector<controls::Control*>& controls, int width);
  /// In an area lower than that the controls go beyond its lower edge.
  Placements place(const std::vector<controls::Control*>& controls, const Rect& area);

 private:
  /// A piece that takes the whole width.
  struct Block {
    int height = 0;
    int gap = 0;         ///< above it
    bool grows = false;  ///< takes a share of what is left
    bool docked = false;
    std::function<void(const Rect&)> place;
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
  /// From the left edge to where fields begin.
  int fieldColumn() const {
    return captionColumn_ ? captionColumn_ + metrics_.px(captionColumnGap) : 0;
  }

  /// What a field's look-up button takes beside it; 0 without one.
  int lookupWidth(const controls::Control& field) const;
  /// Puts a field there and its look-up button behind it; gives where both end.
  int putField(const controls::Control& field, const Rect& bounds);

  Blocks blocksOf(const Controls& controls, int width);
  Block fieldBlock(controls::Control& field);
  /// Check boxes side by side.
  Block checksBlock(const Controls& checks);
  Block lineBlock(const Controls& line);
  Block tableLineBlock(const Controls& line, bool headed);
  Block groupBlock(controls::GroupBox& group, int width);
  Block columnsBlock(const std::vector<controls::GroupBox*>& groups, int width);
  Block wholeBlock(controls::Control& control);
  // query_editor_layout.cpp
  Block editorBlock(controls::QueryEditor& editor);
  void placeRow(const controls::QueryEditor::Row& row, const Rect& area);
  void placeValue(const controls::EditBox& box, const controls::Label& description,
                  std::size_t length, bool isList, const Rect& area);
  void placeBelow(const controls::QueryEditor& editor, const Rect& area, int warning);
  /// A check box that switches what stands below it, as its heading.
  Block headingBlock(controls::Control& check, controls::Control& control);
  static int heightOf(const Blocks& blocks);
  static void placeBlocks(const Blocks& blocks, const Rect& area);
  void prepare(const Controls& controls, int width);

  Metrics metrics_;
  std::map<std::string, std::int32_t> rules_;
  int captionColumn_ = 0;  ///< one for the whole page, so that its groups line up
  Placements placements_;
};

}  // namespace kebu::windows::layout
