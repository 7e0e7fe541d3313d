#pragma once

#include <string>
#include <vector>

#include "common/row_values.h"
#include "windows/support/variant.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// The elements of a one-dimensional array of texts or variants; none of an
/// empty variant. RuntimeError 13 for anything else.
std::vector<Value> vectorIn(const VARIANT& variant);
/// A one-dimensional array of texts, from 0.
Variant textArray(const std::vector<std::string>& texts);
/// The rows of an array [field][row] of variants, as ADO's GetRows gives it,
/// one element a row; an empty cell, which only a new row has, is a null.
/// RuntimeError 13 for anything else.
std::vector<RowValues> rowsIn(const VARIANT& variant);

}  // namespace kebu::windows
