#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kebu::workbench {

struct GridCellView {
  std::string text;
  bool locked = false;   ///< cannot be changed although the column is editable
  bool unused = false;   ///< the row has no use for it
  bool unknown = false;  ///< a description whose code was not found
};

struct GridRowView {
  std::int32_t number = 0;
  std::string state;  ///< "" when the grid has no state column
  std::vector<GridCellView> cells;
};

struct GridColumnView {
  std::string field;
  std::string caption;
};

struct GridView {
  std::vector<GridColumnView> columns;
  std::vector<GridRowView> rows;  ///< the requested ones
  std::int32_t rowCount = 0;
  std::int32_t currentRow = 0;
};

/// One of several things that a control offers: a button, a link, a panel.
struct ItemView {
  std::string text;
  std::string mark;
};

/// What a person sees of a control.
struct ControlView {
  std::string name;
  std::string caption;
  std::optional<std::string> value;  ///< as displayed: a combo's code with its caption
  bool enabled = true;
  bool visible = true;
  std::string hint;                ///< shown in an empty box
  std::vector<std::string> marks;  ///< "read-only", "required", "look-up", "unknown", "locked"
  std::vector<ItemView> items;
  std::vector<ControlView> children;
  std::optional<GridView> grid;
};

}  // namespace kebu::workbench
