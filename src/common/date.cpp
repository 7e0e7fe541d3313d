#include "common/date.h"

#include <chrono>
#include <cstddef>

namespace kebu {
namespace {

std::chrono::year_month_day calendarDay(const Date& date) {
  return {std::chrono::year(date.year), std::chrono::month(date.month), std::chrono::day(date.day)};
}

/// Writes a number over the zeros that end before `end`.
void write(std::string& text, std::size_t end, int value) {
  for (; value > 0; value /= 10) text[--end] = static_cast<char>('0' + value % 10);
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
  std::string text = "00000000";
  write(text, 4, year);
  write(text, 6, month);
  write(text, 8, day);
  return text;
}

std::string Date::toIso() const {
  std::string text = "0000-00-00 00:00:00.000";
  write(text, 4, year);
  write(text, 7, month);
  write(text, 10, day);
  write(text, 13, hour);
  write(text, 16, minute);
  write(text, 19, second);
  write(text, 23, millisecond);
  return text;
}

}  // namespace kebu
