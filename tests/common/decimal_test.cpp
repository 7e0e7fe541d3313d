#include "common/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "common/error.h"

namespace kebu {

void PrintTo(const Decimal& value, std::ostream* out) {
  *out << value.toString();
}

namespace {

constexpr auto largest = "79228162514264337593543950335";  // 2^96 - 1
constexpr auto smallest = "0.0000000000000000000000000001";

Decimal dec(std::string_view text) {
  return Decimal::parse(text).value();
}

/// The number of the error that the action raises; 0 when it raises none.
template <class Action>
int errorOf(Action action) {
  try {
    action();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}

TEST(Decimal, ReadsAndWritesDigitsWithAPoint) {
  for (const char* text : {"0", "7", "-7", "0.5", "-0.05", "17.9100", "1000000000000000000000",
                           largest, smallest, "7.9228162514264337593543950335"}) {
    EXPECT_EQ(dec(text).toString(), text);
  }
  EXPECT_EQ(dec("007.10").toString(), "7.10");
  EXPECT_EQ(dec("-0.00").toString(), "0.00");
  EXPECT_FALSE(dec("-0").isNegative());
  for (const char* text :
       {"", "-", "+1", ".5", "5.", ".", "1,5", " 1", "1 ", "1.2.3", "--1", "1e3", "1a", "1.-2"}) {
    EXPECT_FALSE(Decimal::parse(text)) << text;
  }
}

TEST(Decimal, ReadingRoundsHalfToEvenAtTheLastDigitThatFits) {
  const std::pair<const char*, const char*> cases[] = {
      {"0.00000000000000000000000000005", "0.0000000000000000000000000000"},
      {"0.00000000000000000000000000015", "0.0000000000000000000000000002"},
      {"0.000000000000000000000000000050001", "0.0000000000000000000000000001"},
      {"79228162514264337593543950334.5", "79228162514264337593543950334"},
      {"79228162514264337593543950334.51", largest},
      {"7.92281625142643375935439503355", "7.922816251426433759354395034"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(dec(text).toString(), expected) << text;
  EXPECT_EQ(errorOf([] { dec("79228162514264337593543950336"); }), 6);
  EXPECT_EQ(errorOf([] { dec("79228162514264337593543950335.5"); }), 6);
  EXPECT_EQ(errorOf([] { dec(std::string(80, '9')); }), 6);
}

TEST(Decimal, ConvertsWholeNumbers) {
  constexpr auto min = std::numeric_limits<std::int64_t>::min();
  EXPECT_EQ(Decimal(min).toString(), "-9223372036854775808");
  EXPECT_EQ(Decimal(min).toInt64(), min);
  EXPECT_EQ(Decimal::scaled(-1991, 2).toString(), "-19.91");
  EXPECT_EQ(errorOf([] { Decimal::scaled(1, 29); }), 5);
  EXPECT_EQ(errorOf([] { Decimal::scaled(1, -1); }), 5);

  EXPECT_EQ(dec("2.5").toInt32(), 2);
  EXPECT_EQ(dec("3.5").toInt32(), 4);
  EXPECT_EQ(dec("-2.5").toInt32(), -2);
  EXPECT_EQ(dec("2.50001").toInt32(), 3);
  EXPECT_EQ(dec("-2147483648.5").toInt32(), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(errorOf([] { (void)dec("2147483647.5").toInt32(); }), 6);
  EXPECT_EQ(errorOf([] { (void)dec("9223372036854775808").toInt64(); }), 6);

  EXPECT_EQ(dec("12.30").unscaledAt(1), 123);
  EXPECT_EQ(dec("-12.3").unscaledAt(3), -12300);
  EXPECT_EQ(dec("12.34").unscaledAt(1), std::nullopt);
  EXPECT_EQ(dec("12.01").unscaledAt(0), std::nullopt);
  EXPECT_EQ(dec("1000").unscaledAt(28), std::nullopt);
}

TEST(Decimal, Rounds) {
  struct Case {
    const char* value;
    int scale;
    const char *toEven, *away, *cut;
  };
  const Case cases[] = {
      {"2.345", 2, "2.34", "2.35", "2.34"},
      {"-2.345", 2, "-2.34", "-2.35", "-2.34"},
      {"2.355", 2, "2.36", "2.36", "2.35"},
      {"2.3450001", 2, "2.35", "2.35", "2.34"},
      {"2.34499", 2, "2.34", "2.34", "2.34"},
      {"0.5", 0, "0", "1", "0"},
      {"9.999", 2, "10.00", "10.00", "9.99"},
      {"1.5", 3, "1.500", "1.500", "1.500"},
      {"-0.4", 0, "0", "0", "0"},
  };
  for (const auto& [value, scale, toEven, away, cut] : cases) {
    EXPECT_EQ(dec(value).rounded(scale).toString(), toEven) << value;
    EXPECT_EQ(dec(value).roundedAway(scale).toString(), away) << value;
    EXPECT_EQ(dec(value).truncated(scale).toString(), cut) << value;
  }
  EXPECT_EQ(dec(largest).rounded(28).toString(), largest);
  EXPECT_EQ(dec("1000").rounded(28).toString(), "1000.0000000000000000000000000");
}

TEST(Decimal, AddsAndSubtracts) {
  struct Case {
    const char *a, *b, *sum, *difference;
  };
  const Case cases[] = {
      {"1.10", "2.205", "3.305", "-1.105"},
      {"-5", "3", "-2", "-8"},
      {"0.1", "0.2", "0.3", "-0.1"},
      {"19.90", "1.99", "21.89", "17.91"},
      {"4294967295", "1", "4294967296", "4294967294"},
      {"18446744073709551616", "0.1", "18446744073709551616.1", "18446744073709551615.9"},
      {largest, smallest, largest, largest},
      {largest, "-0.4", largest, largest},
  };
  for (const auto& [a, b, sum, difference] : cases) {
    EXPECT_EQ((dec(a) + dec(b)).toString(), sum) << a << " + " << b;
    EXPECT_EQ((dec(a) - dec(b)).toString(), difference) << a << " - " << b;
  }
  EXPECT_FALSE((dec("-1.5") + dec("1.5")).isNegative());
  EXPECT_EQ(errorOf([] { dec(largest) + Decimal(1); }), 6);
}

TEST(Decimal, Multiplies) {
  struct Case {
    const char *a, *b, *product;
  };
  const Case cases[] = {
      {"19.90", "0.9", "17.910"},
      {"-3", "0", "0"},
      {"-1.5", "-1.5", "2.25"},
      {"123456789012345678901234.5678", "98765.4321", "12193263112482853211248285312"},
      {"281474976710656", "281474976710655.5", "79228162514264196856055595008"},
      {"0.00000000000005", "0.000000000000001", "0.0000000000000000000000000000"},
      {"0.00000000000015", "0.000000000000001", "0.0000000000000000000000000002"},
      {"7.9228162514264337593543950335", "0.1", "0.7922816251426433759354395034"},
  };
  for (const auto& [a, b, product] : cases) {
    EXPECT_EQ((dec(a) * dec(b)).toString(), product) << a << " * " << b;
    EXPECT_EQ((dec(b) * dec(a)).toString(), product) << b << " * " << a;
  }
  EXPECT_EQ(errorOf([] { dec("281474976710656") * dec("281474976710656"); }), 6);
}

TEST(Decimal, Divides) {
  struct Case {
    const char *a, *b, *quotient;
  };
  const Case cases[] = {
      {"10", "4", "2.5"},
      {"-1", "8", "-0.125"},
      {"6", "3", "2"},
      {"1", "3", "0.3333333333333333333333333333"},
      {"2", "3", "0.6666666666666666666666666667"},
      {"2000", "3", "666.66666666666666666666666667"},
      {"1", "0.0001", "10000"},
      {"0", "-7", "0"},
      {largest, largest, "1"},
      {largest, "10", "7922816251426433759354395033.5"},
      {largest, "2", "39614081257132168796771975168"},
      {"1", largest, "0.0000000000000000000000000000"},
      {"12345678901234567890.12", "0.0098765", "1250005457523876665835.0630284"},
  };
  for (const auto& [a, b, quotient] : cases) {
    EXPECT_EQ((dec(a) / dec(b)).toString(), quotient) << a << " / " << b;
  }
  EXPECT_EQ(errorOf([] { dec("1") / dec("0.00"); }), 11);
  EXPECT_EQ(errorOf([] { dec(largest) / dec("0.1"); }), 6);
}

TEST(Decimal, ComparesByValue) {
  EXPECT_EQ(dec("1.0"), dec("1.00"));
  EXPECT_EQ(dec("0"), dec("-0.000"));
  const char* ascending[] = {
      "-79228162514264337593543950335", "-1.01", "-1",   "-0.5", "0", smallest,
      "0.9999999999999999999999999999", "1",     "1.01", largest};
  for (std::size_t i = 1; i < std::size(ascending); ++i) {
    EXPECT_LT(dec(ascending[i - 1]), dec(ascending[i])) << ascending[i];
  }
}

}  // namespace
}  // namespace kebu
