#include "common/locale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace kebu {
namespace {

bool isBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

/// A text that is read from the left.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool atEnd() const { return rest_.empty(); }
  std::string_view rest() const { return rest_; }
  bool skip(char c) { return skipAny({&c, 1}); }
  bool skipAny(std::string_view characters) {
    if (atEnd() || characters.find(rest_.front()) == std::string_view::npos) return false;
    rest_.remove_prefix(1);
    return true;
  }
  bool skipBlanks() {
    const auto before = rest_.size();
    while (!atEnd() && isBlank(rest_.front())) rest_.remove_prefix(1);
    return rest_.size() < before;
  }
  std::string_view digits() {
    const std::string_view found = rest_.substr(0, rest_.find_first_not_of("0123456789"));
    rest_.remove_prefix(found.size());
    return found;
  }

 private:
  std::string_view rest_;
};

std::string_view withoutBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// Takes the sign off a number's text: before it, behind it, or parentheses
/// around it for a negative one. A second sign stays and spoils the number.
bool takeSign(std::string_view& text) {
  text = withoutBlanks(text);
  if (text.empty()) return false;
  const auto isSign = [](char c) { return c == '-' || c == '+'; };
  bool negative = false;
  if (isSign(text.front())) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  } else if (isSign(text.back())) {
    negative = text.back() == '-';
    text.remove_suffix(1);
  } else if (text.front() == '(' && text.back() == ')') {
    negative = true;
    text = text.substr(1, text.size() - 2);
  }
  text = withoutBlanks(text);
  return negative;
}

/// Enough to push every digit of a decimal out of its range.
constexpr int exponentLimit = 1000;

/// "E[+-]digits" behind a number; 0 when there is none.
std::optional<int> parseExponent(Scanner& scanner) {
  if (!scanner.skipAny("eE")) return 0;
  const bool negative = scanner.skip('-');
  if (!negative) scanner.skip('+');
  const std::string_view digits = scanner.digits();
  if (digits.empty()) return std::nullopt;
  int exponent = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  if (error != std::errc() || exponent > exponentLimit) exponent = exponentLimit;
  return negative ? -exponent : exponent;
}

/// Moves the point of whole.fraction by `exponent` digits.
std::string withPoint(std::string whole, std::string fraction, int exponent) {
  const auto shift = static_cast<std::size_t>(std::abs(exponent));
  if (exponent > 0) {
    fraction.resize(std::max(fraction.size(), shift), '0');
    whole += fraction.substr(0, shift);
    fraction.erase(0, shift);
  } else if (exponent < 0) {
    whole.insert(0, shift, '0');
    fraction.insert(0, whole.substr(whole.size() - shift));
    whole.erase(whole.size() - shift);
  }
  return "0" + whole + (fraction.empty() ? "" : "." + fraction);
}

std::optional<int> parseNumber(Scanner& scanner, std::size_t minDigits, std::size_t maxDigits) {
  const std::string_view digits = scanner.digits();
  if (digits.size() < minDigits || digits.size() > maxDigits) return std::nullopt;
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

using DayParts = std::array<int, 3>;  // year, month, day

std::optional<DayParts> parseIsoDay(Scanner& scanner) {
  const auto year = parseNumber(scanner, 4, 4);
  if (!year || !scanner.skip('-')) return std::nullopt;
  const auto month = parseNumber(scanner, 1, 2);
  if (!month || !scanner.skip('-')) return std::nullopt;
  const auto day = parseNumber(scanner, 1, 2);
  if (!day) return std::nullopt;
  return DayParts{*year, *month, *day};
}

int fullYear(int year, bool twoDigits) {
  if (!twoDigits) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

std::optional<DayParts> parseLocalDay(Scanner& scanner, std::string_view separators,
                                      bool dayFirst) {
  const auto first = parseNumber(scanner, 1, 2);
  if (!first || !scanner.skipAny(separators)) return std::nullopt;
  const auto second = parseNumber(scanner, 1, 2);
  if (!second || !scanner.skipAny(separators)) return std::nullopt;
  const std::size_t before = scanner.rest().size();
  const auto year = parseNumber(scanner, 1, 4);
  const std::size_t yearDigits = before - scanner.rest().size();
  if (!year || yearDigits == 3) return std::nullopt;
  return DayParts{fullYear(*year, yearDigits < 4), dayFirst ? *second : *first,
                  dayFirst ? *first : *second};
}

using TimeParts = std::array<int, 3>;  // hour, minute, second

std::optional<TimeParts> parseTime(Scanner& scanner) {
  const auto hour = parseNumber(scanner, 1, 2);
  if (!hour || !scanner.skip(':')) return std::nullopt;
  const auto minute = parseNumber(scanner, 1, 2);
  if (!minute) return std::nullopt;
  if (!scanner.skip(':')) return TimeParts{*hour, *minute, 0};
  const auto second = parseNumber(scanner, 1, 2);
  if (!second) return std::nullopt;
  return TimeParts{*hour, *minute, *second};
}

std::string twoDigits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

thread_local Locale threadLocale = Locale::italian();

}  // namespace

std::optional<Decimal> Locale::parseDecimal(std::string_view text) const {
  const bool negative = takeSign(text);
  Scanner scanner(text);
  std::string whole(scanner.digits());
  while (scanner.skip(groupSeparator)) whole += scanner.digits();
  std::string fraction;
  if (scanner.skip(decimalSeparator)) fraction = scanner.digits();
  if (whole.empty() && fraction.empty()) return std::nullopt;
  const auto exponent = parseExponent(scanner);
  if (!exponent || !scanner.atEnd()) return std::nullopt;
  const auto value = Decimal::parse(withPoint(std::move(whole), std::move(fraction), *exponent));
  return negative ? -value.value() : value;
}

bool Locale::groupsThreeDigits(std::string_view number) const {
  constexpr std::size_t group = 3;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  std::string_view whole = number.substr(0, number.find(decimalSeparator));
  const auto isAround = [&](char c) { return !isDigit(c) && c != groupSeparator; };
  while (!whole.empty() && isAround(whole.front())) whole.remove_prefix(1);
  while (!whole.empty() && isAround(whole.back())) whole.remove_suffix(1);
  for (std::size_t place = whole.rfind(groupSeparator); place != std::string_view::npos;
       place = whole.rfind(groupSeparator)) {
    if (place == 0 || whole.size() - place - 1 != group) return false;
    whole = whole.substr(0, place);
    if (whole.find(groupSeparator) == std::string_view::npos && whole.size() > group) return false;
  }
  return true;
}

std::string Locale::format(const Decimal& value) const {
  return value.toShortestString(decimalSeparator);
}

std::optional<Date> Locale::parseDate(std::string_view text) const {
  text = withoutBlanks(text);
  Scanner scanner(text);
  auto day = parseIsoDay(scanner);
  if (!day) {
    scanner = Scanner(text);
    day = parseLocalDay(scanner, std::string("/-.") + dateSeparator, dayFirst);
  }
  if (!day) return std::nullopt;
  TimeParts time{};
  if (scanner.skipBlanks()) {
    const auto parsed = parseTime(scanner);
    if (!parsed) return std::nullopt;
    time = *parsed;
  }
  if (!scanner.atEnd()) return std::nullopt;
  return Date::make((*day)[0], (*day)[1], (*day)[2], time[0], time[1], time[2]);
}

std::string Locale::format(const Date& value) const {
  const std::string ansi = value.toAnsi();
  constexpr std::size_t year = 0, month = 4, day = 6;
  std::string text(ansi, dayFirst ? day : month, 2);
  text += dateSeparator;
  text.append(ansi, dayFirst ? month : day, 2);
  text += dateSeparator;
  text.append(ansi, year, 4);
  if (value.hasTime()) {
    text +=
        ' ' + twoDigits(value.hour) + ':' + twoDigits(value.minute) + ':' + twoDigits(value.second);
  }
  return text;
}

const Locale& runtimeLocale() {
  return threadLocale;
}
void setRuntimeLocale(const Locale& locale) {
  threadLocale = locale;
}

}  // namespace kebu
