#pragma once

#include <string>

#include "common/value.h"

namespace kebu {

/// `fallback` when `value` is empty, null or blank text; otherwise `value` itself, untrimmed.
Value NVL(const Value& value, const Value& fallback);

/// The value as a decimal; the 16-bit integer 0 for nothing, empty, null and
/// blank text. A text that is no number raises RuntimeError 13.
Value CDecN(const Value& value = {});

/// The text without trailing blanks (leading ones stay); "" for empty and null.
std::string RTrimN(const Value& value);

/// "yyyymmdd" of a date or of a text that reads as one in the locale; else "".
std::string GetAnsiDate(const Value& value);

}  // namespace kebu
