#include "common/automation_date.h"

#include <cmath>

#include "common/error.h"

namespace kebu {

namespace {

constexpr std::int32_t epochDay = -25569;

/// The days of the years that automation knows. Not so a NaN.
bool isAutomationDate(double date) {
  return date > -657435.0 && date < 2958466.0;
}

}  // namespace

Date fromAutomationDate(double date) {
  if (!isAutomationDate(date)) throw RuntimeError::typeMismatch();
  const double whole = std::trunc(date);
  std::int64_t rest = std::llround(std::abs(date - whole) * Date::millisecondsPerDay);
  std::int64_t day = static_cast<std::int64_t>(whole) + epochDay;
  if (rest == Date::millisecondsPerDay) {
    rest = 0;
    ++day;
  }
  // The last half millisecond of the last day rounds up to a day that there is not.
  const auto result = Date::fromDayNumber(day, rest);
  if (!result) throw RuntimeError::typeMismatch();
  return *result;
}

double toAutomationDate(const Date& date) {
  const double whole = date.dayNumber() - epochDay;
  const double part = static_cast<double>(date.millisecondOfDay()) / Date::millisecondsPerDay;
  const double result = whole < 0 ? whole - part : whole + part;
  if (!isAutomationDate(result)) throw RuntimeError::typeMismatch();
  return result;
}

}  // namespace kebu
