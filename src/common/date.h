#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kebu {

/// A point in the proleptic Gregorian calendar, to the millisecond, without a
/// time zone: what ADO delivers for date columns.
struct Date {
  std::int16_t year = 1899;
  std::uint8_t month = 12;  ///< 1 to 12
  std::uint8_t day = 30;    ///< 1 to 31
  std::uint8_t hour = 0;
  std::uint8_t minute = 0;
  std::uint8_t second = 0;
  std::uint16_t millisecond = 0;

  /// Nothing when there is no such day or time.
  static std::optional<Date> make(int year, int month, int day, int hour = 0, int minute = 0,
                                  int second = 0, int millisecond = 0);
  /// The same from the days since 1970-01-01 (negative before) and the time of day in
  /// milliseconds. Nothing outside of the years 1 to 9999.
  static std::optional<Date> fromDayNumber(std::int64_t days, std::int64_t millisecondOfDay = 0);
  static constexpr std::int64_t millisecondsPerDay = std::int64_t{24} * 60 * 60 * 1000;

  bool hasTime() const { return hour || minute || second || millisecond; }
  Date withoutTime() const { return {year, month, day}; }
  std::int32_t dayNumber() const;
  std::int64_t millisecondOfDay() const;
  /// "yyyymmdd".
  std::string toAnsi() const;
  /// "yyyy-mm-dd hh:mm:ss.mmm": sorts as the dates do.
  std::string toIso() const;

  friend auto operator<=>(const Date&, const Date&) = default;
};

}  // namespace kebu
