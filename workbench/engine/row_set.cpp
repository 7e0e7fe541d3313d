#include "workbench/engine/row_set.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/ado_error.h"

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
  // Nearly everyone writes a name as the table does; that is the quicker look.
  auto found = std::find_if(fields.begin(), fields.end(),
                            [&](const ado::Field& candidate) { return candidate.name == field; });
  if (found == fields.end()) {
    found = std::find_if(fields.begin(), fields.end(), [&](const ado::Field& candidate) {
      return equalsIgnoringCase(candidate.name, field);
    });
  }
  if (found == fields.end()) throw adoerror::noSuchItem();
  return static_cast<std::size_t>(found - fields.begin());
}

}  // namespace kebu::engine
