#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/date.h"
#include "common/decimal.h"

namespace kebu {

/// How the run time writes and reads numbers and dates for people. SQL text
/// never depends on it.
struct Locale {
  char decimalSeparator = ',';
  char groupSeparator = '.';
  char dateSeparator = '/';
  bool dayFirst = true;

  static Locale italian() { return {}; }

  /// Reads a number as people type it: blanks at both ends, a sign before or
  /// after, group separators anywhere before the decimal separator. Nothing
  /// when it is none.
  std::optional<Decimal> parseDecimal(std::string_view text) const;
  /// Whether the group separators of a number stand where they group three digits, as in "1.234,5".
  /// In "1.5" the point was meant for something else.
  bool groupsThreeDigits(std::string_view number) const;
  std::string format(const Decimal& value) const;
  /// Reads "d/m/yy[yy][ h:m[:s]]" in this locale's order ("-" and "." separate
  /// too) and "yyyy-mm-dd"; two-digit years from 30 on are of the 1900s.
  std::optional<Date> parseDate(std::string_view text) const;
  /// "dd/mm/yyyy", followed by " hh:mm:ss" when there is a time of day.
  std::string format(const Date& value) const;
};

/// The locale of the calling thread; Italian until the platform sets another.
const Locale& runtimeLocale();
void setRuntimeLocale(const Locale& locale);

}  // namespace kebu
