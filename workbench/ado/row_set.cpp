#include "workbench/ado/row_set.h"

#include <utility>

#include "workbench/ado/ado_error.h"
#include "workbench/ado/field_description.h"

namespace kebu::workbench {

RowSet::RowSet(engine::ResultSet result) : table(std::move(result.table)) {
  fields.reserve(result.columns.size());
  types.reserve(result.columns.size());
  columns.reserve(result.columns.size());
  for (auto& column : result.columns) {
    fields.push_back(describeField(column));
    types.push_back(column.type);
    columns.push_back(std::move(column.baseColumn));
  }
  rows.reserve(result.rows.size());
  for (auto& values : result.rows) rows.emplace_back().values = std::move(values);
}

std::size_t RowSet::indexOf(std::string_view field) const {
  const std::size_t index = ado::indexOf(fields, field);
  if (index == fields.size()) throw adoerror::noSuchItem();
  return index;
}

}  // namespace kebu::workbench
