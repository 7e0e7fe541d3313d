#pragma once

#include <ostream>

#include "workbench/host/shown_list.h"
#include "workbench/player/control_view.h"

namespace kebu::workbench {

void printControl(std::ostream& out, const ControlView& view);
/// The list's beginning; what follows is told by its number of rows.
void printLookup(std::ostream& out, ShownList& list);

}  // namespace kebu::workbench
