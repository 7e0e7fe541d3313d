// What arrives in a variant, as far as it is the same everywhere: dates as numbers of days, and
// decimals in their parts. 8 bytes are a double; 14 more a decimal.

#include <cmath>
#include <cstring>

#include "common/automation_date.h"
#include "common/convert.h"
#include "common/decimal.h"
#include "common/error.h"
#include "tests/fuzz/fuzz_target.h"

namespace {

using namespace kebu;
using namespace kebu::tests;

void readDate(double days) {
  try {
    const Date date = fromAutomationDate(days);
    require(Date::make(date.year, date.month, date.day, date.hour, date.minute, date.second,
                       date.millisecond)
                .has_value(),
            "a date that there is not");
    require(date.year >= 100 && date.year <= 9999, "a year that automation does not know");
    const double written = toAutomationDate(date);
    require(fromAutomationDate(written) == date, "a written date is another one");
    // Below day 0 two numbers can be one moment: -0.25 and 0.25.
    constexpr double millisecond = 1.0 / 86'400'000;
    require(std::abs(written - days) < 2 * millisecond || days < 1, "a date moves");
  } catch (const RuntimeError& error) {
    require(error.number() == 13, "a date is refused with another error");
  }
}

void readDecimal(const Decimal::Mantissa& mantissa, int scale, bool negative) {
  try {
    const Decimal decimal(mantissa, scale, negative);
    const auto read = Decimal::parse(decimal.toString());
    require(read && *read == decimal, "a written decimal is another one");
    try {
      toInt32(Value(decimal));
    } catch (const RuntimeError& error) {
      require(error.number() == 6, "a decimal is refused with another error");
    }
  } catch (const RuntimeError& error) {
    require(error.number() == 5 && (scale < 0 || scale > Decimal::maxScale),
            "a decimal is refused as it should not be");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  double days = 0;
  if (size < sizeof days) return 0;
  std::memcpy(&days, data, sizeof days);
  readDate(days);
  // Most bit patterns are no date: the whole part and the fraction of one that is.
  std::int32_t day = 0;
  std::uint32_t part = 0;
  std::memcpy(&day, data, sizeof day);
  std::memcpy(&part, data + sizeof day, sizeof part);
  constexpr std::int32_t range = 3'000'000;
  readDate(day % range + static_cast<double>(part) / 4294967296.0);
  Decimal::Mantissa mantissa{};
  constexpr std::size_t whole = sizeof days + sizeof mantissa + 2;
  if (size < whole) return 0;
  std::memcpy(mantissa.data(), data + sizeof days, sizeof mantissa);
  const std::uint8_t* const rest = data + sizeof days + sizeof mantissa;
  readDecimal(mantissa, rest[0] % 32, (rest[1] & 1) != 0);
  return 0;
}
