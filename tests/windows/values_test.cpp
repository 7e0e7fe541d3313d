#include "windows/support/values.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/windows/transcript.h"
#include "tests/windows/variant_with.h"
#include "windows/support/safe_array.h"

namespace kebu::tests {

namespace {

using windows::Variant;

Variant currency(std::int64_t tenThousandths) {
  Variant result;
  result.raw().cyVal.int64 = tenThousandths;
  result.raw().vt = VT_CY;
  return result;
}

struct Case {
  const char* kind;
  Variant given;
  const char* value;  ///< "" for what no value can be
};

std::string described(const Variant& given) {
  try {
    return describe(windows::toValue(given.get()));
  } catch (const RuntimeError& error) {
    return error.number() == 13 ? "" : "error " + std::to_string(error.number());
  }
}

TEST(Values, ComeFromVariantsOfEveryKind) {
  const Case cases[] = {
      {"VT_I1", with(VT_I1, &VARIANT::cVal, CHAR(-5)), "int16 -5"},
      {"VT_UI1", with(VT_UI1, &VARIANT::bVal, BYTE(250)), "int16 250"},
      {"VT_UI2", with(VT_UI2, &VARIANT::uiVal, USHORT(65535)), "int32 65535"},
      {"VT_UI4", with(VT_UI4, &VARIANT::ulVal, ULONG(4294967295U)), "decimal 4294967295"},
      {"VT_I8", with(VT_I8, &VARIANT::llVal, std::numeric_limits<LONGLONG>::min()),
       "decimal -9223372036854775808"},
      {"VT_UI8", with(VT_UI8, &VARIANT::ullVal, std::numeric_limits<ULONGLONG>::max()),
       "decimal 18446744073709551615"},
      {"VT_R4", with(VT_R4, &VARIANT::fltVal, 0.5F), "decimal 0.5"},
      {"VT_R8", with(VT_R8, &VARIANT::dblVal, 19.9), "decimal 19.9"},
      {"VT_R8 too large", with(VT_R8, &VARIANT::dblVal, 1e30), "error 6"},
      {"VT_CY", currency(-199000), "decimal -19.9000"},
      {"VT_CY, the least", currency(std::numeric_limits<std::int64_t>::min()),
       "decimal -922337203685477.5808"},
      {"VT_DATE of a time alone", with(VT_DATE, &VARIANT::date, -0.5),
       "date 1899-12-30 12:00:00.000"},
      {"VT_DATE before the first day", with(VT_DATE, &VARIANT::date, -1.25),
       "date 1899-12-29 06:00:00.000"},
      {"VT_DATE just before midnight", with(VT_DATE, &VARIANT::date, 45356.999999999),
       "date 2024-03-06 00:00:00.000"},
      {"VT_DATE that is none", with(VT_DATE, &VARIANT::date, 3e6), ""},
      {"VT_DATE that rounds beyond the last day", with(VT_DATE, &VARIANT::date, 2958465.9999999999),
       ""},
      {"VT_BSTR without a text", with(VT_BSTR, &VARIANT::bstrVal, BSTR(nullptr)), "text \"\""},
      {"an argument left out", Variant::missing(), "empty"},
      {"VT_ERROR", with(VT_ERROR, &VARIANT::scode, SCODE(E_FAIL)), ""},
      {"an array", windows::textArray({"a"}), ""},
      {"no object", Variant(windows::ComPtr<IDispatch>()), "no object"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(described(each.given), each.value) << each.kind;
  }
}

TEST(Values, ComeFromWhatReferencesReferTo) {
  Variant inner(std::string_view("perché"));
  Variant outer;
  outer.raw().vt = VT_BYREF | VT_VARIANT;
  outer.raw().pvarVal = &inner.raw();
  LONG number = 7;
  Variant direct;
  direct.raw().vt = VT_BYREF | VT_I4;
  direct.raw().plVal = &number;
  EXPECT_EQ(described(outer), "text \"perché\"");
  EXPECT_EQ(described(direct), "int32 7");
}

TEST(Values, SurviveTheWayThroughAVariant) {
  const Decimal widest({0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}, 28, true);
  const Value values[] = {
      Value(),
      Null{},
      true,
      false,
      std::int16_t{-32768},
      std::int32_t{2147483647},
      widest,
      Decimal::scaled(0, 4),
      *Date::make(100, 1, 1),
      *Date::make(9999, 12, 31, 23, 59, 59, 999),
      *Date::make(1899, 12, 29, 18, 0, 0, 1),
      *Date::make(2026, 11, 24, 0, 0, 0, 333),
      "",
      "l'è 漢字 🙂",
      std::string("con\0zero", 8),
      "half of a pair \xED\xA0\xBD, both in the wrong order \xED\xB8\x80\xED\xA0\xBD",
  };
  for (const Value& value : values) {
    const Value back = windows::toValue(windows::toVariant(value).get());
    EXPECT_EQ(describe(back), describe(value));
  }
}

TEST(Values, AreNoDatesBeforeTheFirstOne) {
  const auto error = [](const Date& date) {
    try {
      windows::toVariant(date);
      return 0;
    } catch (const RuntimeError& raised) {
      return raised.number();
    }
  };
  EXPECT_EQ(error(*Date::make(100, 1, 1)), 0);
  EXPECT_EQ(error(*Date::make(99, 12, 31, 23, 59)), 13);
  EXPECT_EQ(error(*Date::make(1, 1, 1)), 13);
}

TEST(Values, KeepVariantsThatAreOnlyPassedOn) {
  const Variant real = with(VT_R8, &VARIANT::dblVal, 0.1);
  const Variant back = windows::toVariant(windows::keptValue(real.get()));
  EXPECT_EQ(back.type(), VT_R8);
  EXPECT_EQ(back.get().dblVal, 0.1);
  const Variant list = windows::toVariant(windows::keptValue(windows::textArray({"a", "è"}).get()));
  EXPECT_TRUE((windows::vectorIn(list.get()) == std::vector<Value>{"a", "è"})) << "an array";
}

}  // namespace

}  // namespace kebu::tests
