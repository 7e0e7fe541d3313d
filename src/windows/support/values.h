#pragma once

#include "common/value.h"
#include "windows/support/variant.h"

namespace kebu::windows {

/// The nearest value: whole numbers up to 32 bits as such, all other numbers as
/// decimals, dates to the millisecond, a missing argument as empty.
/// RuntimeError 13 for what no value can be, such as an array.
Value toValue(const VARIANT& variant);
/// A value that converts back to the same variant, for what the plug-in only keeps and passes on.
Value keptValue(const VARIANT& variant);
Variant toVariant(const Value& value);

}  // namespace kebu::windows
