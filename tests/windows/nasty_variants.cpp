#include "tests/windows/nasty_variants.h"

#include <limits>

#include "tests/values/nasty_values.h"
#include "tests/windows/listener.h"
#include "tests/windows/variant_with.h"
#include "windows/support/safe_array.h"

namespace kebu::tests {

namespace {

using windows::ComPtr;
using windows::Variant;

/// An object that cannot be called by late binding.
class WithoutMembers final : public windows::ComObject<IUnknown> {};

Variant real(double value) {
  return with(VT_R8, &VARIANT::dblVal, value);
}

Variant date(double value) {
  return with(VT_DATE, &VARIANT::date, value);
}

Variant currency(std::int64_t tenThousandths) {
  Variant result;
  result.raw().cyVal.int64 = tenThousandths;
  result.raw().vt = VT_CY;
  return result;
}

Variant decimal(BYTE scale, BYTE sign) {
  constexpr ULONG all = 0xFFFFFFFF;
  Variant result;
  DECIMAL& number = result.raw().decVal;
  number.Hi32 = all;
  number.Mid32 = all;
  number.Lo32 = all;
  number.scale = scale;
  number.sign = sign;
  result.raw().vt = VT_DECIMAL;  // last: the number begins at the same place
  return result;
}

Variant text(std::wstring_view utf16) {
  Variant result;
  result.raw().bstrVal = windows::Bstr(utf16).detach();
  result.raw().vt = VT_BSTR;
  return result;
}

Variant bytes(const char* content, UINT size) {
  Variant result;
  result.raw().bstrVal = SysAllocStringByteLen(content, size);
  result.raw().vt = VT_BSTR;
  return result;
}

}  // namespace

std::vector<NastyVariant> nastyVariants() {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  // What references refer to lives on.
  static LONG number = 7;
  static Variant inner(std::string_view("perché"));
  std::vector<NastyVariant> all;
  const auto add = [&](const char* name, Variant value) {
    all.push_back({name, std::move(value)});
  };
  add("empty", {});
  add("null", Variant::null());
  add("an argument left out", Variant::missing());
  add("an error", with(VT_ERROR, &VARIANT::scode, SCODE(E_FAIL)));
  add("true", true);
  add("a boolean of 1", with(VT_BOOL, &VARIANT::boolVal, VARIANT_BOOL{1}));
  add("VT_I1", with(VT_I1, &VARIANT::cVal, CHAR(-128)));
  add("VT_UI1", with(VT_UI1, &VARIANT::bVal, BYTE(255)));
  add("VT_I2", std::int16_t{-32768});
  add("VT_UI2", with(VT_UI2, &VARIANT::uiVal, USHORT(65535)));
  add("VT_I4", std::numeric_limits<std::int32_t>::min());
  add("VT_UI4", with(VT_UI4, &VARIANT::ulVal, ULONG(4294967295U)));
  add("VT_INT", with(VT_INT, &VARIANT::intVal, INT(-1)));
  add("VT_UINT", with(VT_UINT, &VARIANT::uintVal, UINT(4294967295U)));
  add("VT_I8", with(VT_I8, &VARIANT::llVal, std::numeric_limits<LONGLONG>::min()));
  add("VT_UI8", with(VT_UI8, &VARIANT::ullVal, std::numeric_limits<ULONGLONG>::max()));
  add("VT_R4", with(VT_R4, &VARIANT::fltVal, std::numeric_limits<float>::max()));
  add("VT_R4, no number", with(VT_R4, &VARIANT::fltVal, std::numeric_limits<float>::quiet_NaN()));
  add("VT_R8", real(0.1));
  add("VT_R8, half", real(2.5));
  add("VT_R8, no number", real(nan));
  add("VT_R8, infinite", real(infinity));
  add("VT_R8, minus infinite", real(-infinity));
  add("VT_R8, minus zero", real(-0.0));
  add("VT_R8, the largest", real(std::numeric_limits<double>::max()));
  add("VT_R8, the least", real(std::numeric_limits<double>::denorm_min()));
  add("VT_CY", currency(std::numeric_limits<std::int64_t>::min()));
  add("VT_DECIMAL", decimal(28, DECIMAL_NEG));
  add("VT_DECIMAL, large", decimal(0, 0));
  add("VT_DECIMAL of too many decimals", decimal(29, 0));
  add("VT_DECIMAL of far too many decimals", decimal(255, 0));
  add("VT_DECIMAL of another sign", decimal(1, 0x7F));
  add("VT_DATE", date(45356.5625));
  add("VT_DATE, no number", date(nan));
  add("VT_DATE, infinite", date(infinity));
  add("VT_DATE, far ahead", date(3e6));
  add("VT_DATE, far back", date(-1e9));
  add("VT_BSTR without a text", with(VT_BSTR, &VARIANT::bstrVal, BSTR(nullptr)));
  add("the first half of a pair", text(L"a\xD83D"));
  add("the second half of a pair", text(L"\xDE00z"));
  add("halves in the wrong order", text(L"\xDE00\xD83D"));
  add("a half before a pair", text(L"\xD83D\xD83D\xDE00"));
  add("no characters", text(L"\xFFFE\xFFFF"));
  add("a zero character alone", text(std::wstring_view(L"\0", 1)));
  add("a text of bytes", bytes("abc", 3));
  add("no object", Variant(ComPtr<IDispatch>()));
  add("an object", Variant(ComPtr<IDispatch>::adopt(new Listener)));
  add("VT_UNKNOWN, none", Variant(ComPtr<IUnknown>()));
  add("an object without members", Variant(ComPtr<IUnknown>::adopt(new WithoutMembers)));
  add("an array of texts", windows::textArray({"a", "b\xED\xA0\x80"}));
  add("an empty array", Variant::adopt(SafeArrayCreateVector(VT_VARIANT, 0, 0), VT_VARIANT));
  add("no array", Variant::adopt(nullptr, VT_UI1));
  add("a reference", with(VT_BYREF | VT_I4, &VARIANT::plVal, &number));
  add("a reference to a VARIANT", with(VT_BYREF | VT_VARIANT, &VARIANT::pvarVal, &inner.raw()));
  for (const NastyValue& value : nastyValues()) {
    all.push_back({std::string("text ") + value.name, Variant(value.text)});
  }
  return all;
}

}  // namespace kebu::tests
