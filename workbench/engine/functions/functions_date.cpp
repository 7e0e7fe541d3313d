// Dates, which SQLite sees as milliseconds.

#include <algorithm>
#include <array>
#include <optional>

#include "workbench/engine/functions/functions.h"
#include "workbench/engine/values/cast.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {
namespace {

/// A part of a date: its length in months, or in milliseconds.
struct Part {
  std::string_view name;
  int months;
  std::int64_t milliseconds;
};

constexpr std::int64_t second = 1000;
constexpr std::int64_t minute = 60 * second;
constexpr std::int64_t hour = 60 * minute;
constexpr std::int64_t day = 24 * hour;

constexpr std::array parts{
    Part{"YEAR", 12, 0},       Part{"YYYY", 12, 0},   Part{"YY", 12, 0},
    Part{"QUARTER", 3, 0},     Part{"QQ", 3, 0},      Part{"MONTH", 1, 0},
    Part{"MM", 1, 0},          Part{"M", 1, 0},       Part{"WEEK", 0, 7 * day},
    Part{"WK", 0, 7 * day},    Part{"DAY", 0, day},   Part{"DD", 0, day},
    Part{"D", 0, day},         Part{"HOUR", 0, hour}, Part{"HH", 0, hour},
    Part{"MINUTE", 0, minute}, Part{"MI", 0, minute}, Part{"N", 0, minute},
    Part{"SECOND", 0, second}, Part{"SS", 0, second}, Part{"S", 0, second},
    Part{"MILLISECOND", 0, 1}, Part{"MS", 0, 1}};

const Part& partAt(CellArguments args, std::size_t index) {
  const std::string_view name = textAt(args, index);
  const auto found =
      std::find_if(parts.begin(), parts.end(), [&](const Part& part) { return part.name == name; });
  if (found == parts.end())
    throw SqlError(155, "'" + std::string(name) + "' is not a recognized datepart option.");
  return *found;
}

Date dateAt(CellArguments args, std::size_t index) {
  return dateFromMilliseconds(integerAt(args, index));
}

std::int64_t monthsOf(const Date& date) {
  return date.year * std::int64_t{12} + date.month - 1;
}

SqlError beyondTheCalendar() {
  return {517, "Adding a value to a 'datetime' column caused an overflow."};
}

std::int64_t floorDivided(std::int64_t a, std::int64_t b) {
  return a / b - (a % b < 0 ? 1 : 0);
}

Date movedByMonths(const Date& date, std::int64_t number) {
  const std::int64_t months = monthsOf(date) + number;
  const std::int64_t years = floorDivided(months, 12);
  if (years < 1 || years > 9999) throw beyondTheCalendar();
  const auto year = static_cast<int>(years);
  const auto month = static_cast<int>(months - year * std::int64_t{12}) + 1;
  std::optional<Date> moved;
  // In a shorter month the 31st becomes the last day.
  for (int last = date.day; !moved; --last) {
    moved = Date::make(year, month, last, date.hour, date.minute, date.second, date.millisecond);
  }
  return *moved;
}

/// The date so many milliseconds later. `number` is an int, so that the product fits.
Date movedBy(const Date& date, std::int64_t number, std::int64_t milliseconds) {
  try {
    return dateFromMilliseconds(millisecondsOf(date) + number * milliseconds);
  } catch (const SqlError&) {
    throw beyondTheCalendar();
  }
}

/// kb_dateadd(part, number, date, type): `number` is an int.
Cell dateAdd(CellArguments args) {
  const Part& part = partAt(args, 0);
  const std::int64_t number = integerAt(args, 1);
  const Date date = dateAt(args, 2);
  const SqlType type = SqlType::fromCode(integerAt(args, 3));
  if (type.kind == TypeKind::Date && part.months == 0 && part.milliseconds < day) {
    throw SqlError(9810, "The datepart " + std::string(part.name) +
                             " is not supported by date function dateadd for data type date.");
  }
  const Date moved = part.months > 0 ? movedByMonths(date, number * part.months)
                                     : movedBy(date, number, part.milliseconds);
  if (!isInRange(moved, type)) throw beyondTheCalendar();
  return Cell::of(millisecondsOf(moved));
}

/// kb_datediff(part, from, to): the boundaries of the part that lie between.
Cell dateDiff(CellArguments args) {
  const Part& part = partAt(args, 0);
  if (part.months > 0) {
    return Cell::of(monthsOf(dateAt(args, 2)) / part.months -
                    monthsOf(dateAt(args, 1)) / part.months);
  }
  // Weeks begin on Sunday, as 4 January 1970 was.
  const std::int64_t shift = part.milliseconds == 7 * day ? 4 * day : 0;
  const auto count = [&](std::size_t index) {
    return floorDivided(integerAt(args, index) + shift, part.milliseconds);
  };
  return Cell::of(count(2) - count(1));
}

/// kb_datepart(part, date)
Cell datePart(CellArguments args) {
  const Part& part = partAt(args, 0);
  const Date date = dateAt(args, 1);
  switch (part.months) {
    case 12:
      return Cell::of(date.year);
    case 3:
      return Cell::of((date.month - 1) / 3 + 1);
    case 1:
      return Cell::of(date.month);
    default:
      break;
  }
  switch (part.milliseconds) {
    case day:
      return Cell::of(date.day);
    case hour:
      return Cell::of(date.hour);
    case minute:
      return Cell::of(date.minute);
    case second:
      return Cell::of(date.second);
    case 1:
      return Cell::of(date.millisecond);
    default:
      throw SqlError(155, "DATEPART of weeks is not known.");
  }
}

constexpr std::array entries{
    FunctionEntry{"kb_dateadd", 4, dateAdd},
    FunctionEntry{"kb_datediff", 3, dateDiff},
    FunctionEntry{"kb_datepart", 2, datePart},
};

}  // namespace

std::span<const FunctionEntry> dateFunctions() {
  return entries;
}

}  // namespace kebu::engine
