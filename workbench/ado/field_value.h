#pragma once

#include <string>

#include "common/value.h"
#include "workbench/engine/values/types.h"

namespace kebu::engine {

/// A value as a field or parameter of the type takes it, texts by the locale.
/// RuntimeError 13 for what cannot be converted, 6 for a number too large,
/// -2147217887 for a text too long.
Value forField(const Value& value, const SqlType& type);
/// A value as a statement's text shows it.
std::string sqlText(const Value& value);

}  // namespace kebu::engine
