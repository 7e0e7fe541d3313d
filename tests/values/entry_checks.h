#pragma once

#include "tests/values/entry_window.h"

namespace kebu::tests {

/// How much is tried in each field and cell: all, or a third of the values with one operator, of
/// which neighbours get others.
enum class Share { All, Third };

// Each enters every nasty value in the places of one kind. Each time the value is kept as it is, or
// refused, or the user is told: nothing is changed without a word. The window is open and shows
// what the demo company has.

void enterInBoxesOfTheProfile(EntryWindow& window);
void enterInLevelsOfCategories(EntryWindow& window, Share share);
void enterInConditionsOfFilters(EntryWindow& window, Share share);
void enterInCellsOfPriceLists(EntryWindow& window, Share share);
void enterInThePositionOfARule(EntryWindow& window);

/// Whether both are the same for people: blanks at the end do not count, and a number may be
/// written in another form.
bool isSameValue(const std::string& given, const std::string& kept);

}  // namespace kebu::tests
