#include "common/date.h"

#include <chrono>
#include <cstddef>

namespace kebu {
namespace {

std::chrono::year_month_day calendarDay(const Date& date) {
  return {std::chrono::year(date.year), std::chrono::month(date.month), std::chrono::day(date.day)};
}

/// Writes the number's last digits over the zeros that begin at `start`.
void write(std::string& text, std::size_t start, std::size_t digits, int value) {
  for (std::size_t place = start + digits; place > start && value > 0; value /= 10)
    text[--place] = static_cast<char>('0' + value % 10);
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

std::int64_t Date::millisecondOfDay() const {
  return ((hour * 60 + minute) * 60 + second) * std::int64_t{1000} + millisecond;
}

std::optional<Date> Date::fromDayNumber(std::int64_t days, std::int64_t millisecondOfDay) {
  static const std::int64_t first = Date{1, 1, 1}.dayNumber();
  static const std::int64_t last = Date{9999, 12, 31}.dayNumber();
  if (days < first || days > last) return std::nullopt;
  if (millisecondOfDay < 0 || millisecondOfDay >= millisecondsPerDay) return std::nullopt;
  const std::chrono::year_month_day day{
      std::chrono::sys_days(std::chrono::days(static_cast<std::int32_t>(days)))};
  Date date;
  date.year = static_cast<std::int16_t>(static_cast<int>(day.year()));
  date.month = static_cast<std::uint8_t>(static_cast<unsigned>(day.month()));
  date.day = static_cast<std::uint8_t>(static_cast<unsigned>(day.day()));
  date.hour = static_cast<std::uint8_t>(millisecondOfDay / 3'600'000);
  date.minute = static_cast<std::uint8_t>(millisecondOfDay / 60'000 % 60);
  date.second = static_cast<std::uint8_t>(millisecondOfDay / 1000 % 60);
  date.millisecond = static_cast<std::uint16_t>(millisecondOfDay % 1000);
  return date;
}

std::string Date::toAnsi() const {
  std::string text = toIso().substr(0, 10);
  std::erase(text, '-');
  return text;
}

std::string Date::toIso() const {
  std::string text = "0000-00-00 00:00:00.000";
  write(text, 0, 4, year);
  write(text, 5, 2, month);
  write(text, 8, 2, day);
  write(text, 11, 2, hour);
  write(text, 14, 2, minute);
  write(text, 17, 2, second);
  write(text, 20, 3, millisecond);
  return text;
}

}  // namespace kebu
