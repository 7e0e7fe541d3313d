#pragma once

#include <string>

#include "controls/form.h"
#include "controls/query_grid.h"
#include "workbench/player/control_view.h"
#include "workbench/player/hands.h"

namespace kebu::workbench {

/// What a person sees of a control, read from its model. `rows` is used for a grid.
ControlView viewOf(controls::Control& control, const RowRange& rows);
/// The value of a control as text. StepError for a control that has none.
std::string valueOf(const controls::Control& control);
/// The text of a cell: of a column, or of a field of the recordset that no column shows.
std::string cellTextOf(controls::QueryGrid& grid, std::int32_t place, const std::string& field);

}  // namespace kebu::workbench
