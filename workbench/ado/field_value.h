#pragma once

#include <string>

#include "common/value.h"
#include "workbench/engine/values/types.h"

namespace kebu::workbench {

/// A value converted to the type of a field or parameter. Texts are read by the locale.
/// RuntimeError 13 for what cannot be converted, 6 for a number too large,
/// -2147217887 for a text too long.
Value forField(const Value& value, const engine::SqlType& type);
/// A value as a literal in SQL.
std::string sqlText(const Value& value);

}  // namespace kebu::workbench
