#include "common/date.h"

#include <chrono>
#include <cstddef>

namespace kebu {
namespace {

std::chrono::year_month_day calendarDay(const Date& date) {
  return {std::chrono::year(date.year), std::chrono::month(date.month), std::chrono::day(date.day)};
}

/// Adds `value` in as many digits as `width`, after `before`.
void append(std::string& text, const char* before, int value, std::size_t width) {
  text += before;
  text.append(width, '0');
  for (auto digit = text.rbegin(); value > 0; ++digit, value /= 10) {
    *digit = static_cast<char>('0' + value % 10);
  }
}

bool within(int value, int low, int high) {
  return low <= value && value <= high;
}

}  // namespace

std::optional<Date> Date::make(int year, int month, int day, int hour, int minute, int second,
                               int millisecond) {
  if (!within(year, 1, 9999) || !within(month, 1, 12) || !within(day, 1, 31)) return std::nullopt;
  if (!within(hour, 0, 23) || !within(minute, 0, 59)) return std::nullopt;
  if (!within(second, 0, 59) || !within(millisecond, 0, 999)) return std::nullopt;
  const Date date{static_cast<std::int16_t>(year),        static_cast<std::uint8_t>(month),
                  static_cast<std::uint8_t>(day),         static_cast<std::uint8_t>(hour),
                  static_cast<std::uint8_t>(minute),      static_cast<std::uint8_t>(second),
                  static_cast<std::uint16_t>(millisecond)};
  if (!calendarDay(date).ok()) return std::nullopt;
  return date;
}

std::int32_t Date::dayNumber() const {
  return static_cast<std::int32_t>(
      std::chrono::sys_days(calendarDay(*this)).time_since_epoch().count());
}

Date Date::fromDayNumber(std::int32_t days) {
  const std::chrono::year_month_day day{std::chrono::sys_days(std::chrono::days(days))};
  Date date;
  date.year = static_cast<std::int16_t>(static_cast<int>(day.year()));
  date.month = static_cast<std::uint8_t>(static_cast<unsigned>(day.month()));
  date.day = static_cast<std::uint8_t>(static_cast<unsigned>(day.day()));
  return date;
}

std::string Date::toAnsi() const {
  std::string text;
  append(text, "", year, 4);
  append(text, "", month, 2);
  append(text, "", day, 2);
  return text;
}

std::string Date::toIso() const {
  std::string text;
  append(text, "", year, 4);
  append(text, "-", month, 2);
  append(text, "-", day, 2);
  append(text, " ", hour, 2);
  append(text, ":", minute, 2);
  append(text, ":", second, 2);
  append(text, ".", millisecond, 3);
  return text;
}

}  // namespace kebu
