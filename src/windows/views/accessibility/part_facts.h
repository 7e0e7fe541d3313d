#pragma once

#include <cstdint>
#include <string>

#include "windows/views/window/inspection.h"

// What assistive technology calls the parts that an Inspection answers about: roles and states are
// the numbers of IAccessible.
namespace kebu::windows {

/// What an object contains.
enum class Contents : std::uint8_t {
  None,
  Rows,     ///< the rows of a grid, by number from 0, the heads
  Items,    ///< items that are no windows
  Windows,  ///< what Windows knows of: child windows, the parts of a combo box
};

/// What the control of an answer contains; None for a part other than an item.
Contents contentsOf(const Inspection& answer);
LONG roleOf(const Inspection& answer);
/// What the answer says of the state; where the focus is, is not in it.
LONG ownStateOf(const Inspection& answer);
std::wstring nameOf(const Inspection& answer);
std::wstring valueOf(const Inspection& answer);
/// What a click does, in Italian; "" for nothing.
const char* actionOf(const Inspection& answer);

}  // namespace kebu::windows
