#include "workbench/engine/values/cast.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <string>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/values/cell.h"
#include "workbench/engine/values/code_page.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {
namespace {

SqlError overflow(const SqlType& to) {
  return {8115,
          "Arithmetic overflow error converting expression to data type " + to.declaration() + "."};
}

/// The error for a text whose number is too large for the integer type.
SqlError textOverflow(const std::string& text, const SqlType& to) {
  switch (to.kind) {
    case TypeKind::TinyInt:
      return {244, "The conversion of the varchar value '" + text +
                       "' overflowed an INT1 column. Use a larger integer column."};
    case TypeKind::SmallInt:
      return {244, "The conversion of the varchar value '" + text +
                       "' overflowed an INT2 column. Use a larger integer column."};
    case TypeKind::Int:
      return {248, "The conversion of the varchar value '" + text + "' overflowed an int column."};
    default:
      return overflow(to);
  }
}

SqlError notConvertible(const SqlType& to) {
  return {529, "Explicit conversion to data type " + to.declaration() + " is not allowed."};
}

std::optional<Decimal> numberIn(std::string_view text) {
  const std::string trimmed = trim(text);
  if (trimmed.empty()) return Decimal();
  std::string_view digits = trimmed;
  if (digits.front() == '+') digits.remove_prefix(1);
  std::string complete(digits);
  const std::size_t sign = complete.starts_with('-') ? 1 : 0;
  if (complete.substr(sign).starts_with('.')) complete.insert(sign, 1, '0');
  if (complete.ends_with('.')) complete.pop_back();
  return Decimal::parse(complete);
}

/// Any value as a decimal; nothing for a text that is no number.
std::optional<Decimal> decimalOf(const Value& value) {
  if (value.isText()) return numberIn(value.as<std::string>());
  if (value.holds<Decimal>()) return value.as<Decimal>();
  if (value.holds<bool>()) return Decimal(value.as<bool>() ? 1 : 0);
  if (value.holds<std::int16_t>()) return Decimal(value.as<std::int16_t>());
  if (value.holds<std::int32_t>()) return Decimal(value.as<std::int32_t>());
  return std::nullopt;
}

Value wholeNumber(std::int64_t number, const SqlType& to) {
  if (to.kind == TypeKind::Bit) return number != 0;
  if (number < leastOf(to.kind) || number > greatestOf(to.kind)) throw overflow(to);
  return valueOf(Cell::of(number), to);
}

Value toInteger(const Value& value, const SqlType& to) {
  if (value.holds<std::int16_t>()) return wholeNumber(value.as<std::int16_t>(), to);
  if (value.holds<std::int32_t>()) return wholeNumber(value.as<std::int32_t>(), to);
  if (value.isText() && to.kind == TypeKind::Bit) {
    if (equalsIgnoringCase(value.as<std::string>(), "true")) return true;
    if (equalsIgnoringCase(value.as<std::string>(), "false")) return false;
  }
  const auto number = decimalOf(value);
  if (value.isText() && (!number || number->scale() > 0)) {
    throw SqlError(245, "Conversion failed when converting the varchar value '" +
                            value.as<std::string>() + "' to data type " + to.declaration() + ".");
  }
  if (!number) throw notConvertible(to);
  if (to.kind == TypeKind::Bit) return !number->isZero();
  const auto whole = number->truncated(0).unscaledAt(0);
  const bool fits = whole && *whole >= leastOf(to.kind) && *whole <= greatestOf(to.kind);
  if (!fits && value.isText()) throw textOverflow(value.as<std::string>(), to);
  if (!whole) throw overflow(to);
  return wholeNumber(*whole, to);
}

Value toDecimal(const Value& value, const SqlType& to) {
  // Unlike for integers, an empty text is no number.
  const bool isEmptyText = value.isText() && trim(value.as<std::string>()).empty();
  const auto number = isEmptyText ? std::nullopt : decimalOf(value);
  if (!number && value.isText())
    throw SqlError(8114, "Error converting data type varchar to numeric.");
  if (!number) throw notConvertible(to);
  const Decimal rounded = number->roundedAway(to.scale);
  // Compared as text: the bound itself may have more digits than a decimal holds.
  const std::string digits = rounded.truncated(0).toString();
  const auto whole = static_cast<int>(digits.size()) - (digits.starts_with('-') ? 1 : 0);
  const bool zero = rounded.truncated(0).isZero();
  if (rounded.scale() != to.scale || (!zero && whole > to.precision - to.scale)) throw overflow(to);
  return rounded;
}

/// CONVERT's styles: y, m, d are the parts of the date, t is the time of day, f with milliseconds.
constexpr std::pair<int, std::string_view> dateStyles[] = {
    {23, "y-m-d"},    {101, "m/d/y"},   {103, "d/m/y"},   {104, "d.m.y"},
    {105, "d-m-y"},   {108, "t"},       {111, "y/m/d"},   {112, "ymd"},
    {120, "y-m-d t"}, {121, "y-m-d f"}, {126, "y-m-dTf"},
};

/// Such as "Jan  5 2024  1:05PM".
std::string dateInWords(const Date& date) {
  static constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const int hour = date.hour % 12 == 0 ? 12 : date.hour % 12;
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%s %2d %04d %2d:%02d%s", months.at(date.month - 1U),
                date.day, date.year, hour, date.minute, date.hour < 12 ? "AM" : "PM");
  return text.data();
}

std::string dateText(const Date& date, int style) {
  if (style == 0 || style == 100) return dateInWords(date);
  const auto* const found =
      std::ranges::find(dateStyles, style, &std::pair<int, std::string_view>::first);
  if (found == std::end(dateStyles)) {
    throw SqlError(281, std::to_string(style) + " is not a style that is known for dates.");
  }
  const std::string iso = date.toIso();  // yyyy-mm-dd hh:mm:ss.mmm
  std::string text;
  for (const char part : found->second) {
    text += part == 'y'   ? iso.substr(0, 4)
            : part == 'm' ? iso.substr(5, 2)
            : part == 'd' ? iso.substr(8, 2)
            : part == 't' ? iso.substr(11, 8)
            : part == 'f' ? iso.substr(11)
                          : std::string(1, part);
  }
  return text;
}

std::string plainText(const Value& value, const SqlType& to, int style) {
  if (value.holds<Date>()) return dateText(value.as<Date>(), style);
  const auto number = decimalOf(value);
  if (!number) throw notConvertible(to);
  return number->toString();
}

Value toTextOfType(const Value& value, const SqlType& to, int style) {
  std::string text = value.isText() ? value.as<std::string>() : plainText(value, to, style);
  if (!to.isUnicode()) text = inCodePage(std::move(text));
  if (to.size < 0) return text;
  const auto size = static_cast<std::size_t>(to.size);
  const std::size_t length = characterCount(text);
  if (length > size) {
    if (value.holds<Decimal>()) throw overflow(to);
    // An integer that does not fit is shown by an asterisk.
    if (!value.isText() && !value.holds<Date>()) return "*";
    text.resize(firstCharacters(text, size).size());
  } else if (to.kind == TypeKind::Char || to.kind == TypeKind::NChar) {
    text.append(size - length, ' ');
  }
  return text;
}

/// Takes up to `digits` digits off the front; nothing without any.
std::optional<int> takeNumber(std::string_view& text, std::size_t digits) {
  const std::size_t count = std::min({text.find_first_not_of("0123456789"), digits, text.size()});
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + count, number);
  if (result.ec != std::errc()) return std::nullopt;
  text.remove_prefix(count);
  return number;
}

bool takeOneOf(std::string_view& text, std::string_view characters) {
  if (text.empty() || characters.find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

struct DateParts {
  int year = 0;
  int month = 0;
  int day = 0;
  std::array<int, 4> time{};  ///< hours, minutes, seconds, milliseconds
};

/// hh[:mm[:ss[.mmm]]]; false when it is something else.
bool readTime(std::string_view text, std::array<int, 4>& time) {
  for (std::size_t part = 0; part < 3 && !text.empty(); ++part) {
    if (part > 0 && !takeOneOf(text, ":")) break;
    const auto number = takeNumber(text, 2);
    if (!number) return false;
    time.at(part) = *number;
  }
  if (takeOneOf(text, ".")) {
    std::string digits(text.substr(0, std::min(text.find_first_not_of("0123456789"), text.size())));
    text.remove_prefix(digits.size());
    digits.resize(3, '0');
    std::from_chars(digits.data(), digits.data() + 3, time[3]);
  }
  return text.empty();
}

/// "yyyymmdd" or "yyyy-mm-dd" (also with "/" and "."), with an optional time of day. Nothing
/// for another form; the numbers need not be a date.
std::optional<DateParts> readDate(std::string_view text) {
  if (text.empty()) return DateParts{1900, 1, 1};
  if (text.find_first_not_of("0123456789") < 4) return std::nullopt;
  DateParts parts;
  const auto year = takeNumber(text, 4);
  const bool separated = takeOneOf(text, "-/.");
  const auto month = takeNumber(text, 2);
  if (separated && !takeOneOf(text, "-/.")) return std::nullopt;
  const auto day = takeNumber(text, 2);
  if (!year || !month || !day) return std::nullopt;
  parts.year = *year;
  parts.month = *month;
  parts.day = *day;
  if (text.empty()) return parts;
  if (!takeOneOf(text, " T")) return std::nullopt;
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  if (!readTime(text, parts.time)) return std::nullopt;
  return parts;
}

SqlError outOfRange(const char* from, const SqlType& to) {
  return {242, std::string("The conversion of a ") + from + " data type to a " + to.declaration() +
                   " data type resulted in an out-of-range value."};
}

Date parsedDate(const std::string& input, const SqlType& to) {
  const auto parts = readDate(trim(input));
  std::optional<Date> date;
  if (parts) {
    const auto& time = parts->time;
    date = Date::make(parts->year, parts->month, parts->day, time[0], time[1], time[2], time[3]);
    if (to.kind == TypeKind::DateTime && (!date || !isInRange(*date, to))) {
      throw outOfRange("varchar", to);
    }
  }
  if (!date) {
    throw SqlError(241,
                   "Conversion failed when converting date and/or time from character string.");
  }
  return *date;
}

/// Numbers count days from 1900.
Date dateOfNumber(const Decimal& days, const SqlType& to) {
  const Decimal beyond(std::int64_t{3'000'000});
  if (days > beyond || days < -beyond) throw overflow(to);
  const Decimal milliseconds = (days * Decimal(Date::millisecondsPerDay)).rounded(0);
  const std::int64_t of1900 = millisecondsOf(Date{1900, 1, 1});
  const Date date = dateFromMilliseconds(milliseconds.toInt64() + of1900);
  if (!isInRange(date, to)) throw overflow(to);
  return date;
}

Value toDateOfType(const Value& value, const SqlType& to) {
  Date date;
  if (value.holds<Date>()) {
    date = value.as<Date>();
    if (!isInRange(date, to)) throw outOfRange("date", to);
  } else if (value.isText()) {
    date = parsedDate(value.as<std::string>(), to);
  } else {
    const auto number = decimalOf(value);
    if (!number) throw notConvertible(to);
    date = dateOfNumber(*number, to);
  }
  return to.kind == TypeKind::Date ? date.withoutTime() : date;
}

Value toGuid(const Value& value) {
  std::string text = value.isText() ? trim(value.as<std::string>()) : std::string();
  if (text.size() == 38 && text.front() == '{' && text.back() == '}') text = text.substr(1, 36);
  bool valid = text.size() == 36;
  for (std::size_t i = 0; valid && i < text.size(); ++i) {
    const bool dash = i == 8 || i == 13 || i == 18 || i == 23;
    valid =
        dash ? text[i] == '-'
             : std::string_view("0123456789abcdefABCDEF").find(text[i]) != std::string_view::npos;
  }
  if (!valid) {
    throw SqlError(
        8169, "Conversion failed when converting from a character string to uniqueidentifier.");
  }
  return toUpperAscii(text);
}

}  // namespace

std::string_view firstCharacters(std::string_view utf8, std::size_t count) {
  std::size_t end = 0;
  for (; end < utf8.size(); ++end) {
    if ((utf8[end] & 0xC0) == 0x80) continue;
    if (count == 0) break;
    --count;
  }
  return utf8.substr(0, end);
}

bool isInRange(const Date& date, const SqlType& type) {
  constexpr int firstYearOfDateTime = 1753;
  return type.kind == TypeKind::Date || date.year >= firstYearOfDateTime;
}

Value castTo(const Value& value, const SqlType& to, int style) {
  if (value.isNull() || value.isEmpty()) return Null{};
  if (to.isInteger()) return toInteger(value, to);
  if (to.isText()) return toTextOfType(value, to, style);
  if (to.isDate()) return toDateOfType(value, to);
  if (to.kind == TypeKind::Decimal) return toDecimal(value, to);
  if (to.kind == TypeKind::Guid) return toGuid(value);
  return value;
}

}  // namespace kebu::engine
