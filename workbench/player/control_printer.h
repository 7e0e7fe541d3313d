#pragma once

#include <ostream>

#include "workbench/host/shown_list.h"
#include "workbench/player/control_view.h"

namespace kebu::workbench {

void printControl(std::ostream& out, const ControlView& view);
/// Prints the first rows of the list and how many follow.
void printLookup(std::ostream& out, ShownList& list);

}  // namespace kebu::workbench
