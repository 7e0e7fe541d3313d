#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/value.h"

namespace kebu {

// The run time's conversions, in the process's locale. What cannot be converted
// raises RuntimeError 13 (type mismatch), what does not fit RuntimeError 6
// (overflow), null where a value is wanted RuntimeError 94.

/// Text as people read it: decimals with the locale's separator, dates in its
/// form, true as "Vero" and false as "Falso", empty as "". Null raises 94.
std::string toText(const Value& value);
/// As toText, with null as "".
std::string toDisplay(const Value& value);
/// Texts by the locale ("1.234,5" is 1234.5), true as -1, empty as 0.
Decimal toDecimal(const Value& value);
/// As toDecimal, rounded half to even.
std::int16_t toInt16(const Value& value);
std::int32_t toInt32(const Value& value);
/// Numbers by "not 0"; the texts "True", "False", "Vero", "Falso" and number texts.
bool toBoolean(const Value& value);
/// Texts by the locale, numbers as days since 30 December 1899.
Date toDate(const Value& value);

/// Equality as between two variants: numbers by value whatever their kind,
/// a number and a text by their texts, empty equal to 0 and "". Null equals nothing.
bool equalAsVariants(const Value& a, const Value& b);

/// A number as SQL text takes it: digits with a point, no group separators.
/// Texts are taken by the locale first.
std::string toSqlNumber(const Value& value);

/// Characters of a UTF-8 text.
std::size_t characterCount(std::string_view utf8);
/// Without blanks at both ends; other white space stays.
std::string trim(std::string_view text);
std::string trimRight(std::string text);
std::string replaceAll(std::string text, std::string_view what, std::string_view with);
/// Letters from a to z only.
std::string toUpperAscii(std::string_view text);
bool equalsIgnoringCase(std::string_view a, std::string_view b);

}  // namespace kebu
