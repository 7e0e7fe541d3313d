#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "common/value.h"
#include "workbench/engine/values/types.h"

namespace kebu::engine {

/// A value as one of the type, by SQL Server's rules: texts are cut to the size,
/// decimals rounded half away from zero, an empty text as an integer is 0. SqlError 245, 8114,
/// 241 or 8169 for what cannot be converted, 8115, 242, 244 or 248 for what does not fit.
/// `style`: as CONVERT takes it, for dates and texts.
Value castTo(const Value& value, const SqlType& to, int style = 0);

/// datetime begins with the year 1753, date with 1; both end with 9999.
bool isInRange(const Date& date, const SqlType& type);
/// The first characters of a text.
std::string_view firstCharacters(std::string_view utf8, std::size_t count);

}  // namespace kebu::engine
