#include "common/locale.h"

#include <gtest/gtest.h>

#include "common/error.h"

namespace kebu {
namespace {

Locale english() {
  Locale locale;
  locale.decimalSeparator = '.';
  locale.groupSeparator = ',';
  locale.dayFirst = false;
  return locale;
}

std::string number(const Locale& locale, std::string_view text) {
  const auto value = locale.parseDecimal(text);
  return value ? value->toString() : "none";
}

TEST(Locale, ReadsNumbersAsPeopleTypeThem) {
  const std::pair<const char*, const char*> cases[] = {
      {"1.234,5", "1234.5"},
      {"1234,5", "1234.5"},
      {"1.2.3,4", "123.4"},
      {" 12 ", "12"},
      {"\t12\r\n", "12"},
      {"-5", "-5"},
      {"5-", "-5"},
      {"5 -", "-5"},
      {"- 5", "-5"},
      {"+5", "5"},
      {"(5)", "-5"},
      {",5", "0.5"},
      {"5,", "5"},
      {"1E3", "1000"},
      {"1,25e+1", "12.5"},
      {"125E-2", "1.25"},
      {"1,5E-3", "0.0015"},
      {"12,345E1", "123.45"},
      {"0E999999999999", "0"},
      {"-0", "0"},
  };
  for (const auto& [text, expected] : cases) {
    const auto value = Locale::italian().parseDecimal(text);
    ASSERT_TRUE(value) << text;
    EXPECT_EQ(*value, Decimal::parse(expected)) << text << " gives " << value->toString();
  }
  for (const char* text :
       {"",  "   ",   "abc",   "-",   "--5", "-5-", "(5", "-(5)",  "()",    ",",
        ".", "1,2,3", "1,2.3", "1 2", "5a",  "E3",  "1E", "1E+-3", "1E3,5", "0x10"}) {
    EXPECT_EQ(number(Locale::italian(), text), "none") << text;
  }
  EXPECT_EQ(number(english(), "1,234.50"), "1234.50");
  EXPECT_THROW((void)Locale::italian().parseDecimal("1E29"), RuntimeError);
  EXPECT_TRUE(Locale::italian().parseDecimal("1E-999999999999")->isZero());
}

TEST(Locale, KeepsTheScaleThatWasTyped) {
  EXPECT_EQ(number(Locale::italian(), "17,9100"), "17.9100");
  EXPECT_EQ(number(Locale::italian(), "17"), "17");
  EXPECT_EQ(number(Locale::italian(), "1,2345678901234567890123456789"),
            "1.2345678901234567890123456789");
}

TEST(Locale, WritesNumbersWithoutTrailingZerosAndGroups) {
  const std::pair<const char*, const char*> cases[] = {
      {"17.9100", "17,91"}, {"5.00", "5"}, {"100", "100"},       {"-0.50", "-0,5"},
      {"1234.5", "1234,5"}, {"0.0", "0"},  {"1000.10", "1000,1"}};
  for (const auto& [value, expected] : cases) {
    EXPECT_EQ(Locale::italian().format(Decimal::parse(value).value()), expected);
  }
  EXPECT_EQ(english().format(Decimal::scaled(15, 1)), "1.5");
}

TEST(Locale, ReadsDates) {
  const std::pair<const char*, const char*> cases[] = {
      {"05/03/2024", "2024-03-05 00:00:00.000"},
      {" 5/3/24 ", "2024-03-05 00:00:00.000"},
      {"5-3-2024", "2024-03-05 00:00:00.000"},
      {"5.3.2024", "2024-03-05 00:00:00.000"},
      {"1/1/29", "2029-01-01 00:00:00.000"},
      {"1/1/30", "1930-01-01 00:00:00.000"},
      {"2024-03-05", "2024-03-05 00:00:00.000"},
      {"05/03/2024 7:08", "2024-03-05 07:08:00.000"},
      {"2024-03-05  23:59:58", "2024-03-05 23:59:58.000"},
  };
  for (const auto& [text, expected] : cases) {
    const auto date = Locale::italian().parseDate(text);
    ASSERT_TRUE(date) << text;
    EXPECT_EQ(date->toIso(), expected) << text;
  }
  for (const char* text : {"", "abc", "5", "5/3", "32/1/2024", "3/13/2024", "29/2/2023", "5/3/024",
                           "5/3/20245", "05/03/2024x", "05/03/2024 25:00", "05/03/2024 7",
                           "05/03/202412:00", "99999999999999/1/1", "2024/03/05", "1234,5"}) {
    EXPECT_FALSE(Locale::italian().parseDate(text)) << text;
  }
  EXPECT_EQ(english().parseDate("3/5/2024"), Date::make(2024, 3, 5));
}

TEST(Locale, KnowsWherePointsGroupThreeDigits) {
  for (const char* number : {"", "5", "1234", "1.234", "12.345,67", "-1.234.567", "1.234,5-", "1,5",
                             "1,2345", " 123.456 ", "1e5"}) {
    EXPECT_TRUE(Locale::italian().groupsThreeDigits(number)) << number;
  }
  for (const char* number :
       {"1.5", "1.23,4", "1234.567", "1.2345", ".123", "1..234", "1.234.5", "1."}) {
    EXPECT_FALSE(Locale::italian().groupsThreeDigits(number)) << number;
  }
  EXPECT_TRUE(english().groupsThreeDigits("1,234.5"));
  EXPECT_FALSE(english().groupsThreeDigits("1,5"));
}

TEST(Locale, WritesDates) {
  EXPECT_EQ(Locale::italian().format(Date{2024, 3, 5}), "05/03/2024");
  EXPECT_EQ(Locale::italian().format(Date{2024, 3, 5, 7, 8, 9}), "05/03/2024 07:08:09");
  EXPECT_EQ(english().format(Date{2024, 3, 5}), "03/05/2024");
}

}  // namespace
}  // namespace kebu
