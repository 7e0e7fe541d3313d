#include "common/nulls.h"

#include <gtest/gtest.h>

#include "common/error.h"

namespace kebu {
namespace {

TEST(Nulls, NvlReplacesOnlyWhatIsEmptyNullOrBlank) {
  const Value five(5);
  for (const Value& blank : {Value(), Value(Null()), Value(""), Value("   ")}) {
    EXPECT_EQ(NVL(blank, five), five);
  }
  const auto object = std::make_shared<Object>();
  for (const Value& kept : {Value(" a "), Value(0), Value(false), Value(Decimal()), Value(Date()),
                            Value(object), Value("\t")}) {
    EXPECT_EQ(NVL(kept, five), kept);
  }
}

TEST(Nulls, CDecNGivesTheShortZeroForNothingAndADecimalOtherwise) {
  const Value zero(std::int16_t{0});
  EXPECT_EQ(CDecN(), zero);
  for (const Value& blank : {Value(), Value(Null()), Value(""), Value("   ")}) {
    EXPECT_EQ(CDecN(blank), zero);
  }
  EXPECT_EQ(CDecN("1.234,50"), Value(Decimal::scaled(12345, 1)));
  EXPECT_EQ(CDecN(0), Value(Decimal(0)));
  EXPECT_EQ(CDecN(true), Value(Decimal(-1)));
  try {
    CDecN("abc");
    ADD_FAILURE() << "abc is no number";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 13);
  }
}

TEST(Nulls, RTrimNKeepsLeadingBlanks) {
  EXPECT_EQ(RTrimN(" a "), " a");
  EXPECT_EQ(RTrimN("   "), "");
  EXPECT_EQ(RTrimN({}), "");
  EXPECT_EQ(RTrimN(Null()), "");
  EXPECT_EQ(RTrimN(Decimal::scaled(150, 2)), "1,5");
}

TEST(Nulls, GetAnsiDateGivesNothingForWhatIsNoDate) {
  EXPECT_EQ(GetAnsiDate(Date{2024, 3, 5}), "20240305");
  EXPECT_EQ(GetAnsiDate("05/03/2024"), "20240305");
  EXPECT_EQ(GetAnsiDate("2024-03-05 10:11:12"), "20240305");
  for (const Value& none : {Value(), Value(Null()), Value(""), Value("domani"), Value("31/02/2024"),
                            Value(45000), Value(std::make_shared<Object>())}) {
    EXPECT_EQ(GetAnsiDate(none), "");
  }
}

}  // namespace
}  // namespace kebu
