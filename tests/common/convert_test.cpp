#include "common/convert.h"

#include <gtest/gtest.h>

#include "common/error.h"
#include "common/locale.h"

namespace kebu {
namespace {

template <class Action>
int errorOf(Action action) {
  try {
    (void)action();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}

Value decimal(std::int64_t unscaled, int scale) {
  return Decimal::scaled(unscaled, scale);
}

TEST(Convert, WritesValuesAsPeopleReadThem) {
  EXPECT_EQ(toText({}), "");
  EXPECT_EQ(toText(true), "Vero");
  EXPECT_EQ(toText(false), "Falso");
  EXPECT_EQ(toText(-12), "-12");
  EXPECT_EQ(toText(decimal(179100, 4)), "17,91");
  EXPECT_EQ(toText(Date{2024, 3, 5}), "05/03/2024");
  EXPECT_EQ(toText(" a "), " a ");
  EXPECT_EQ(errorOf([] { return toText(Null()); }), 94);
  EXPECT_EQ(errorOf([] { return toText(std::make_shared<Object>()); }), 13);
  EXPECT_EQ(toDisplay(Null()), "");
}

TEST(Convert, ConvertsToNumbers) {
  EXPECT_EQ(toDecimal("1.234,5"), Decimal::scaled(12345, 1));
  EXPECT_EQ(toDecimal({}), Decimal());
  EXPECT_EQ(toDecimal(true), Decimal(-1));
  EXPECT_EQ(toInt32("2,5"), 2);
  EXPECT_EQ(toInt32("3,5"), 4);
  EXPECT_EQ(toInt32(decimal(-35, 1)), -4);
  EXPECT_EQ(toInt16("32767,4"), 32767);

  EXPECT_EQ(errorOf([] { return toDecimal("abc"); }), 13);
  EXPECT_EQ(errorOf([] { return toDecimal(""); }), 13);
  EXPECT_EQ(errorOf([] { return toDecimal(Null()); }), 94);
  EXPECT_EQ(errorOf([] { return toInt32("2147483648"); }), 6);
  EXPECT_EQ(errorOf([] { return toInt16(32768); }), 6);
  EXPECT_EQ(errorOf([] { return toInt16("-32768,6"); }), 6);
}

TEST(Convert, ConvertsToBoolean) {
  for (const Value& yes : {Value(true), Value(2), Value("vero"), Value("TRUE"), Value("-1"),
                           Value("0,1"), decimal(1, 28)}) {
    EXPECT_TRUE(toBoolean(yes)) << toText(yes);
  }
  for (const Value& no : {Value(), Value(false), Value(0), Value("Falso"), Value("false"),
                          Value("0,00"), decimal(0, 5)}) {
    EXPECT_FALSE(toBoolean(no)) << toText(no);
  }
  EXPECT_EQ(errorOf([] { return toBoolean("forse"); }), 13);
  EXPECT_EQ(errorOf([] { return toBoolean(Null()); }), 94);
}

TEST(Convert, ConvertsToDates) {
  const Date date{2024, 3, 5};
  EXPECT_EQ(toDate("5/3/24"), date);
  EXPECT_EQ(errorOf([] { return toDate("domani"); }), 13);
  EXPECT_EQ(errorOf([] { return toDate(Null()); }), 94);
}

TEST(Convert, DatesAreDaysSinceTheEndOf1899AsNumbers) {
  EXPECT_EQ(toDate({}), Date());
  EXPECT_EQ(toDecimal(Date{2024, 3, 5}), Decimal(45356));
  EXPECT_EQ(toDate(decimal(4535675, 2)), (Date{2024, 3, 5, 18}));
  EXPECT_EQ(toDate(decimal(-125, 2)), (Date{1899, 12, 29, 6}));
  EXPECT_EQ(toDecimal(Date{1899, 12, 29, 6}), Decimal::scaled(-125, 2));
  EXPECT_EQ(toDate(Decimal::parse("45356.999999999999").value()), (Date{2024, 3, 6}));
  const Date moment{2024, 3, 5, 12, 34, 56, 789};
  EXPECT_EQ(toDate(toDecimal(moment)), moment);
  EXPECT_EQ(errorOf([] { return toDate(3000000); }), 6);
  EXPECT_EQ(errorOf([] { return toDate(decimal(std::numeric_limits<std::int64_t>::min(), 0)); }),
            6);
}

TEST(Convert, ComparesAsVariants) {
  const auto object = std::make_shared<Object>();
  const std::pair<Value, Value> equal[] = {
      {1, decimal(100, 2)},
      {std::int16_t{1}, 1},
      {true, -1},
      {1, "1"},
      {decimal(150, 2), "1,5"},
      {{}, 0},
      {{}, ""},
      {{}, {}},
      {{}, false},
      {"a", "a"},
      {object, object},
      {Date{2024, 3, 5}, "05/03/2024"},
  };
  for (const auto& [a, b] : equal) {
    EXPECT_TRUE(equalAsVariants(a, b));
    EXPECT_TRUE(equalAsVariants(b, a));
  }
  const std::pair<Value, Value> different[] = {
      {Null(), Null()}, {Null(), {}},
      {Null(), 0},      {Null(), ""},
      {1, 2},           {1, "1,0"},
      {1, "uno"},       {"a", "A"},
      {"a", "a "},      {0, ""},
      {{}, "0"},        {{}, 1},
      {object, 1},      {object, std::make_shared<Object>()},
  };
  for (const auto& [a, b] : different) {
    EXPECT_FALSE(equalAsVariants(a, b));
    EXPECT_FALSE(equalAsVariants(b, a));
  }
}

TEST(Convert, SqlNumbersHaveAPointWhateverTheLocale) {
  EXPECT_EQ(toSqlNumber("1.234,50"), "1234.5");
  EXPECT_EQ(toSqlNumber(decimal(-179100, 4)), "-17.91");
  EXPECT_EQ(toSqlNumber({}), "0");
  EXPECT_EQ(toSqlNumber(true), "-1");
}

TEST(Convert, FollowsTheLocaleOfTheProcess) {
  Locale english;
  english.decimalSeparator = '.';
  english.groupSeparator = ',';
  setRuntimeLocale(english);
  EXPECT_EQ(toText(decimal(15, 1)), "1.5");
  EXPECT_EQ(toDecimal("1,234.5"), Decimal::scaled(12345, 1));
  EXPECT_EQ(toSqlNumber("1,234.5"), "1234.5");
  setRuntimeLocale(Locale::italian());
}

TEST(Convert, HandlesTexts) {
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(trim("\ta "), "\ta");
  EXPECT_EQ(trimRight(" a "), " a");
  EXPECT_EQ(replaceAll("a-b--c", "-", "--"), "a--b----c");
  EXPECT_EQ(replaceAll("{1-2}", "-", ""), "{12}");
  EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(toUpperAscii("caff\xC3\xA8 z1"), "CAFF\xC3\xA8 Z1");
  EXPECT_TRUE(equalsIgnoringCase("Gm57", "gM57"));
  EXPECT_FALSE(equalsIgnoringCase("a", "ab"));
}

}  // namespace
}  // namespace kebu
