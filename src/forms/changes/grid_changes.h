#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/query_grid.h"
#include "forms/changes/planned_changes.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// The rows of a grid as they are stored, kept beside those that the user edits. Rows count from 1.
class StoredRows {
 public:
  /// What the grid shows is stored now.
  void keep(controls::QueryGrid& grid);
  /// Empty for a row or field that there is not.
  Value value(std::int32_t row, std::string_view field) const;

 private:
  std::vector<std::string> fields_;
  std::vector<std::vector<Value>> rows_;
};

using CellReader = std::function<Value(const std::string& field)>;

/// A row in the columns of a grid whose cells are changed by the user, but for those of its key.
ReadRow readCells(const PageContext& context, const controls::QueryGrid& grid,
                  const std::string& keyField, const CellReader& valueOf);

/// A value as the caption that a list of values has for it, else the value.
std::string captionIn(const controls::QueryGrid::Items& items, const Value& value);

}  // namespace kebu::forms
