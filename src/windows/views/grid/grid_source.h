#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "controls/query_grid.h"
#include "windows/views/accessibility/describable.h"

namespace kebu::windows {

/// States of a row that are marked.
inline constexpr int completeRow = 1;
inline constexpr int incompleteRow = 2;

/// What a grid shows and acts on. Rows count from 1 in the order in which they are shown, columns
/// from 0.
class GridSource {
 public:
  struct Column {
    std::string field;
    std::string caption;
    int width = 0;  ///< in 96ths of an inch; a column of no width is hidden
    controls::ColumnKind kind = controls::ColumnKind::Text;
    bool refusesAll = false;  ///< has no box that sets all of its cells
  };

  virtual ~GridSource() = default;
  virtual const std::vector<Column>& columns() const = 0;
  virtual std::int32_t rowCount() const = 0;
  virtual std::int32_t currentRow() const = 0;
  virtual std::string cellText(std::int32_t row, std::size_t column) = 0;
  /// The entries of a value list cell.
  virtual std::vector<std::string> itemsOf(std::int32_t /*row*/, std::size_t /*column*/) {
    return {};
  }
  virtual bool isEnabled() const { return true; }
  virtual bool isLocked(std::int32_t /*row*/, std::size_t /*column*/) { return true; }
  /// Whether the row has no use for the cell, which is drawn like a locked one.
  virtual bool isUnused(std::int32_t /*row*/, std::size_t /*column*/) { return false; }
  /// What is shown in the warning colour in place of a description that was not found; "" for
  /// other cells.
  virtual std::string warningOf(std::int32_t /*row*/, std::size_t /*column*/) { return ""; }
  virtual controls::TickState tickState(std::size_t /*column*/) {
    return controls::TickState::None;
  }
  virtual bool keepsRowState() const { return false; }
  /// `completeRow`, `incompleteRow`, or another number for a row without a mark.
  virtual int rowState(std::int32_t /*row*/) { return 0; }
  /// What can be done with the rows beside editing them.
  virtual controls::GridTools& tools() = 0;
  /// What the rows are, for the name of a file.
  virtual std::string title() const = 0;
  /// What describes the grid and its parts; null for a grid that nobody asks about.
  virtual Describable* description() { return nullptr; }
  /// Tells the user of something that could not be done.
  virtual void tell(const std::string& text) = 0;

  // What the user does. Errors are raised.
  virtual void selectRow(std::int32_t row) = 0;
  virtual void edit(std::int32_t /*row*/, std::size_t /*column*/, const std::string& /*text*/) {}
  virtual void choose(std::int32_t /*row*/, std::size_t /*column*/, std::size_t /*item*/) {}
  virtual void empty(std::int32_t /*row*/, std::size_t /*column*/) {}
  virtual void tick(std::int32_t /*row*/, std::size_t /*column*/) {}
  virtual void tickAll(std::size_t /*column*/, bool /*on*/) {}
  virtual void lookup(std::int32_t /*row*/, std::size_t /*column*/) {}
  /// What can be done with the current row besides editing it.
  virtual controls::Menu rowMenu() { return {}; }
  /// Looks for a text; false where the source does so in a box of its own.
  virtual bool hasFindBox() const { return true; }
  /// Double click, or Enter where nothing is edited.
  virtual void activate() {}
};

}  // namespace kebu::windows
