#include "forms/changes/grid_changes.h"

#include <algorithm>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/changes/record_changes.h"

namespace kebu::forms {

void StoredRows::keep(controls::QueryGrid& grid) {
  fields_.clear();
  rows_.clear();
  if (!grid.dataSource()) return;
  for (const ado::Field& field : grid.dataSource()->fields()) fields_.push_back(field.name);
  for (std::int32_t row = 1; row <= grid.rowCount(); ++row) {
    std::vector<Value>& values = rows_.emplace_back();
    for (const std::string& field : fields_) values.push_back(grid.cell(row, field));
  }
}

Value StoredRows::value(std::int32_t row, std::string_view field) const {
  const auto at = std::ranges::find_if(
      fields_, [&](const std::string& own) { return equalsIgnoringCase(own, field); });
  const auto index = static_cast<std::size_t>(row) - 1;
  if (at == fields_.end() || index >= rows_.size()) return {};
  return rows_[index][static_cast<std::size_t>(at - fields_.begin())];
}

std::string captionIn(const controls::QueryGrid::Items& items, const Value& value) {
  std::string text = RTrimN(value);
  if (text.empty()) return text;
  const auto item = std::ranges::find_if(
      items, [&](const auto& each) { return equalAsVariants(Value(each.first), value); });
  return item == items.end() ? text : item->second;
}

ReadRow readCells(const PageContext& context, const controls::QueryGrid& grid,
                  const std::string& keyField, const CellReader& valueOf) {
  ReadRow read;
  for (const controls::QueryGrid::Column& column : grid.columns()) {
    if (!controls::isChangeable(column.kind) || column.field == keyField) continue;
    const Value value = valueOf(column.field);
    const std::string caption = grid.captionOf(column.field);
    read.push_back(column.kind == controls::ColumnKind::Check
                       ? readFlag(context, caption, value)
                       : ReadColumn{caption, value, captionIn(column.items, value)});
  }
  return read;
}

}  // namespace kebu::forms
