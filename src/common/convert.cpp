#include "common/convert.h"

#include <algorithm>
#include <limits>
#include <type_traits>

#include "common/error.h"
#include "common/locale.h"
#include "common/overloaded.h"

namespace kebu {
namespace {

template <class... Cases>
auto match(const Value& value, Cases&&... cases) {
  return std::visit(Overloaded{std::forward<Cases>(cases)...}, value.storage());
}

// A date as a number: whole days from 30 December 1899, the time of day behind
// the point, also where the days are negative (-1.25 is six o'clock of the 29th).
constexpr std::int32_t dayZero = -25569;

Decimal serialOf(const Date& date) {
  const Decimal day(date.dayNumber() - dayZero);
  const Decimal time = Decimal(date.millisecondOfDay()) / Decimal(Date::millisecondsPerDay);
  return day.isNegative() ? day - time : day + time;
}

Date dateOf(const Decimal& serial) {
  const Decimal whole = serial.truncated(0);
  const Decimal fraction = serial.isNegative() ? whole - serial : serial - whole;
  std::int64_t day = std::int64_t{whole.toInt32()} + dayZero;
  std::int64_t milliseconds = (fraction * Decimal(Date::millisecondsPerDay)).toInt64();
  if (milliseconds == Date::millisecondsPerDay) {
    milliseconds = 0;
    ++day;
  }
  const auto date = Date::fromDayNumber(day, milliseconds);
  if (!date) throw RuntimeError::overflow();
  return *date;
}

std::optional<bool> wordAsBoolean(std::string_view text) {
  if (equalsIgnoringCase(text, "True") || equalsIgnoringCase(text, "Vero")) return true;
  if (equalsIgnoringCase(text, "False") || equalsIgnoringCase(text, "Falso")) return false;
  return std::nullopt;
}

Decimal parsedDecimal(const std::string& text) {
  const auto number = runtimeLocale().parseDecimal(text);
  if (!number) throw RuntimeError::typeMismatch();
  return *number;
}

char toUpperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// What a kept value stands for; RuntimeError 13 for any other object.
Value nearestTo(const std::shared_ptr<Object>& object) {
  const auto* const kept = dynamic_cast<const KeptValue*>(object.get());
  if (!kept) throw RuntimeError::typeMismatch();
  return kept->nearest();
}

}  // namespace

std::string toText(const Value& value) {
  return match(
      value, [](std::monostate) { return std::string(); },
      [](Null) -> std::string { throw RuntimeError::invalidNull(); },
      [](bool v) { return std::string(v ? "Vero" : "Falso"); },
      [](std::int16_t v) { return std::to_string(v); },
      [](std::int32_t v) { return std::to_string(v); },
      [](const Decimal& v) { return runtimeLocale().format(v); },
      [](const Date& v) { return runtimeLocale().format(v); },
      [](const std::string& v) { return v; },
      [](const std::shared_ptr<Object>& v) { return toText(nearestTo(v)); });
}

std::string toDisplay(const Value& value) {
  return value.isNull() ? std::string() : toText(value);
}

Decimal toDecimal(const Value& value) {
  return match(
      value, [](std::monostate) { return Decimal(); },
      [](Null) -> Decimal { throw RuntimeError::invalidNull(); },
      [](bool v) { return Decimal(v ? -1 : 0); }, [](std::int16_t v) { return Decimal(v); },
      [](std::int32_t v) { return Decimal(v); }, [](const Decimal& v) { return v; },
      [](const Date& v) { return serialOf(v); },
      [](const std::string& v) { return parsedDecimal(v); },
      [](const std::shared_ptr<Object>& v) { return toDecimal(nearestTo(v)); });
}

std::int16_t toInt16(const Value& value) {
  using Limits = std::numeric_limits<std::int16_t>;
  const std::int32_t number = toInt32(value);
  if (number < Limits::min() || number > Limits::max()) throw RuntimeError::overflow();
  return static_cast<std::int16_t>(number);
}

std::int32_t toInt32(const Value& value) {
  if (value.holds<std::int32_t>()) return value.as<std::int32_t>();
  if (value.holds<std::int16_t>()) return value.as<std::int16_t>();
  return toDecimal(value).toInt32();
}

bool toBoolean(const Value& value) {
  if (value.holds<bool>()) return value.as<bool>();
  if (value.isText()) {
    if (const auto word = wordAsBoolean(trim(value.as<std::string>()))) return *word;
  }
  return !toDecimal(value).isZero();
}

Date toDate(const Value& value) {
  if (value.holds<Date>()) return value.as<Date>();
  if (!value.isText()) return dateOf(toDecimal(value));
  const auto date = runtimeLocale().parseDate(value.as<std::string>());
  if (!date) throw RuntimeError::typeMismatch();
  return *date;
}

bool equalAsVariants(const Value& a, const Value& b) {
  if (a.isInteger() && b.isInteger()) return toInt32(a) == toInt32(b);
  if (a.isNull() || b.isNull()) return false;
  if (a.holds<std::shared_ptr<Object>>() || b.holds<std::shared_ptr<Object>>()) return a == b;
  if (a.isText() || b.isText()) return toText(a) == toText(b);
  return toDecimal(a) == toDecimal(b);
}

std::string toSqlNumber(const Value& value) {
  return toDecimal(value).toShortestString();
}

std::size_t characterCount(std::string_view utf8) {
  const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
  return static_cast<std::size_t>(std::ranges::count_if(utf8, begins));
}

std::string trim(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return trimRight(std::string(text));
}

std::string trimRight(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string replaceAll(std::string text, std::string_view what, std::string_view with) {
  if (what.empty()) return text;
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
  return text;
}

std::string toUpperAscii(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = toUpperAscii(c);
  return upper;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return toUpperAscii(x) == toUpperAscii(y); });
}

}  // namespace kebu
