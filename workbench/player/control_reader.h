#pragma once

#include <string>

#include "controls/form.h"
#include "controls/query_grid.h"
#include "workbench/player/control_view.h"
#include "workbench/player/hands.h"

namespace kebu::workbench {

/// What a person sees of a control, from its model; `rows` matters for a grid.
ControlView viewOf(controls::Control& control, const RowRange& rows);
/// What a control holds as a text; StepError for one that holds nothing.
std::string valueOf(const controls::Control& control);
/// The text of a cell of a column, or of a field that no column shows.
std::string cellTextOf(controls::QueryGrid& grid, std::int32_t row, const std::string& field);

}  // namespace kebu::workbench
