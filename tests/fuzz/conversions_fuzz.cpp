// The run time's conversions of texts under several locales: they give a value or one of three
// errors, and what is written under a locale is read again as the same value.

#include "common/convert.h"
#include "common/error.h"
#include "common/locale.h"
#include "common/nulls.h"
#include "tests/fuzz/fuzz_target.h"

namespace {

using namespace kebu;
using namespace kebu::tests;

/// Calls it and lets the errors pass that a conversion may raise.
template <class Conversion>
void attempt(Conversion&& conversion) {
  try {
    conversion();
  } catch (const RuntimeError& error) {
    const bool expected = error.number() == 13 || error.number() == 6 || error.number() == 94;
    if (!expected) broken("error " + std::to_string(error.number()) + ": " + error.description());
  }
}

void underLocale(const Locale& locale, const std::string& text) {
  setRuntimeLocale(locale);
  const Value value(text);
  attempt([&] {
    const Decimal number = toDecimal(value);
    require(toDecimal(Value(toText(Value(number)))) == number, "a written number is another one");
    const auto sql = Decimal::parse(toSqlNumber(value));
    require(sql && *sql == number, "a number in SQL is another one");
  });
  attempt([&] {
    const Date date = toDate(value);
    const Date read = toDate(Value(toText(Value(date))));
    // Neither the milliseconds nor the century of the writer's year are written.
    require(date.year < 1000 || read.withoutTime() == date.withoutTime(),
            "a written date is another one");
  });
  attempt([&] { toInt16(value); });
  attempt([&] { toInt32(value); });
  attempt([&] { toBoolean(value); });
  attempt([&] { CDecN(value); });
  attempt([&] { equalAsVariants(value, Value(Decimal(1))); });
  require(equalAsVariants(value, value), "a text is not equal to itself");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(textOf(data, size));
  const Locale locales[] = {
      Locale::italian(),
      {.decimalSeparator = '.', .groupSeparator = ',', .dateSeparator = '/', .dayFirst = false},
      {.decimalSeparator = ',', .groupSeparator = ' ', .dateSeparator = '-', .dayFirst = true},
      {.decimalSeparator = '.', .groupSeparator = '\'', .dateSeparator = '.', .dayFirst = true},
  };
  for (const Locale& locale : locales) underLocale(locale, text);
  require(characterCount(text) <= text.size(), "more characters than bytes");
  require(trimRight(trim(text)) == trim(text), "a trimmed text ends in a blank");
  return 0;
}
