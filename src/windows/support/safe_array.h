#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <oaidl.h>

#include <string>
#include <vector>

#include "common/row_values.h"
#include "windows/support/variant.h"

namespace kebu::windows {

/// The elements of a one-dimensional array of texts or variants; none of an
/// empty variant. RuntimeError 13 for anything else.
std::vector<Value> vectorIn(const VARIANT& variant);
/// A one-dimensional array of texts, from 0.
Variant textArray(const std::vector<std::string>& texts);
/// The rows of an array [field][row] of variants, as ADO's GetRows gives it,
/// one element a row; a cell of a new row that nobody has filled is a null.
/// RuntimeError 13 for anything else.
std::vector<RowValues> rowsIn(const VARIANT& variant);

}  // namespace kebu::windows
