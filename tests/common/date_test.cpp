#include "common/date.h"

#include <gtest/gtest.h>

namespace kebu {
namespace {

TEST(Date, MakesOnlyDaysAndTimesThatExist) {
  EXPECT_TRUE(Date::make(2024, 2, 29));
  EXPECT_TRUE(Date::make(2000, 2, 29));
  EXPECT_TRUE(Date::make(9999, 12, 31, 23, 59, 59, 999));
  const int none[][7] = {{2023, 2, 29},       {1900, 2, 29},
                         {2024, 4, 31},       {2024, 0, 1},
                         {2024, 13, 1},       {2024, 1, 0},
                         {0, 1, 1},           {10000, 1, 1},
                         {2024, 1, 1, 24},    {2024, 1, 257},
                         {2024, 1, 1, 0, 60}, {2024, 1, 1, 0, 0, 60},
                         {2024, 1, 1, -1},    {2024, 1, 1, 0, 0, 0, 1000}};
  for (const auto& [y, m, d, h, min, s, ms] : none) {
    EXPECT_FALSE(Date::make(y, m, d, h, min, s, ms)) << y << '-' << m << '-' << d << ' ' << h;
  }
}

TEST(Date, CountsDaysBothWays) {
  EXPECT_EQ((Date{1970, 1, 1}.dayNumber()), 0);
  EXPECT_EQ((Date{2024, 3, 5}.dayNumber()), 19787);
  EXPECT_EQ((Date{1969, 12, 31}.dayNumber()), -1);
  EXPECT_EQ(Date().dayNumber(), -25569);
  for (const int days : {-719162, -25569, -1, 0, 19782, 2932896}) {
    EXPECT_EQ(Date::fromDayNumber(days)->dayNumber(), days);
  }
  EXPECT_EQ(Date::fromDayNumber(2932896, 86'399'999), (Date{9999, 12, 31, 23, 59, 59, 999}));
  EXPECT_EQ(Date::fromDayNumber(-719162), (Date{1, 1, 1}));
  for (const std::int64_t days : {std::int64_t{2932897}, std::int64_t{-719163}, INT64_MAX}) {
    EXPECT_FALSE(Date::fromDayNumber(days)) << days;
  }
  EXPECT_FALSE(Date::fromDayNumber(0, 86'400'000));
  EXPECT_FALSE(Date::fromDayNumber(0, -1));
}

TEST(Date, WritesItselfAndSorts) {
  const Date date = Date::make(2024, 3, 5, 7, 8, 9, 10).value();
  EXPECT_EQ(date.toAnsi(), "20240305");
  EXPECT_EQ(date.toIso(), "2024-03-05 07:08:09.010");
  EXPECT_EQ(Date::make(7, 1, 2).value().toAnsi(), "00070102");
  // Fields that are no date give a wrong text, but stay within it.
  EXPECT_EQ((Date{32767, 255, 255, 255, 255, 255, 65535}.toIso().size()), 23U);
  EXPECT_EQ((Date{-5, 1, 1}.toAnsi()), "00000101");
  EXPECT_LT((Date{2024, 3, 5}), date);
  EXPECT_LT(date, (Date{2024, 4, 1}));
}

}  // namespace
}  // namespace kebu
