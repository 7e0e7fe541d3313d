#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace kebu::tests {

/// What a page shows of the database, a line for each value: those of all its boxes, combos, check
/// boxes and labels, the cells of its grids, and the conditions of its query editors.
std::vector<std::string> shownIn(controls::Control& page);

/// The first line in which both differ, as "one | other"; "" when they are equal.
std::string firstDifference(const std::vector<std::string>& one,
                            const std::vector<std::string>& other);

}  // namespace kebu::tests
