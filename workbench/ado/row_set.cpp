#include "workbench/ado/row_set.h"

#include <utility>

#include "workbench/ado/ado_error.h"

namespace kebu::engine {

RowSet::RowSet(ResultSet result)
    : fields(std::move(result.fields)),
      types(std::move(result.types)),
      table(std::move(result.table)),
      columns(std::move(result.columns)) {
  rows.reserve(result.rows.size());
  for (std::size_t i = 0; i < result.rows.size(); ++i) {
    Row& row = rows.emplace_back();
    row.values = std::move(result.rows[i]);
    if (!table.empty()) row.id = result.rowIds[i];
  }
}

std::size_t RowSet::indexOf(std::string_view field) const {
  const std::size_t index = ado::indexOf(fields, field);
  if (index == fields.size()) throw adoerror::noSuchItem();
  return index;
}

}  // namespace kebu::engine
