#include "workbench/windows/variant.h"

#include <variant>

#include "common/error.h"
#include "windows/views/wide_text.h"

namespace kebu::workbench {

namespace {

/// Puts each kind of value into a VARIANT.
struct Filler {
  VARIANT& out;

  void operator()(std::monostate) const { out.vt = VT_EMPTY; }
  void operator()(Null) const { out.vt = VT_NULL; }
  void operator()(bool value) const {
    out.vt = VT_BOOL;
    out.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(std::int16_t value) const {
    out.vt = VT_I2;
    out.iVal = value;
  }
  void operator()(std::int32_t value) const {
    out.vt = VT_I4;
    out.lVal = value;
  }
  void operator()(const Decimal& value) const {
    const Decimal::Mantissa& digits = value.mantissa();
    out.decVal.Lo32 = digits[0];
    out.decVal.Mid32 = digits[1];
    out.decVal.Hi32 = digits[2];
    out.decVal.scale = static_cast<BYTE>(value.scale());
    out.decVal.sign = value.isNegative() ? DECIMAL_NEG : 0;
    out.vt = VT_DECIMAL;  // after the number, which begins at the same place
  }
  void operator()(const Date& value) const {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(value.year);
    time.wMonth = value.month;
    time.wDay = value.day;
    time.wHour = value.hour;
    time.wMinute = value.minute;
    time.wSecond = value.second;
    out.vt = VT_DATE;
    if (!SystemTimeToVariantTime(&time, &out.date)) throw RuntimeError::typeMismatch();
    // The system's function knows whole seconds; before 1899-12-30 days count backward, times do
    // not.
    const double part = value.millisecond / 86400000.0;
    out.date += out.date < 0 ? -part : part;
  }
  void operator()(const std::string& value) const {
    out.vt = VT_BSTR;
    out.bstrVal = newBstr(value);
  }
  void operator()(const std::shared_ptr<Object>& /*value*/) const {
    throw RuntimeError::typeMismatch();
  }
};

Decimal toDecimal(const DECIMAL& value) {
  return {{value.Lo32, value.Mid32, value.Hi32}, value.scale, (value.sign & DECIMAL_NEG) != 0};
}

Date toDate(double serial) {
  // Rounded to the millisecond first: the system's function would round to the second.
  const double whole = static_cast<double>(static_cast<std::int64_t>(serial));
  const double fraction = serial < whole ? whole - serial : serial - whole;
  const auto milliseconds = static_cast<std::int64_t>(fraction * 86400000.0 + 0.5);
  constexpr std::int32_t epoch = -25569;  // 1899-12-30
  Date date = Date::fromDayNumber(epoch + static_cast<std::int32_t>(whole) +
                                  static_cast<std::int32_t>(milliseconds / 86400000));
  const std::int64_t ofDay = milliseconds % 86400000;
  date.hour = static_cast<std::uint8_t>(ofDay / 3600000);
  date.minute = static_cast<std::uint8_t>(ofDay / 60000 % 60);
  date.second = static_cast<std::uint8_t>(ofDay / 1000 % 60);
  date.millisecond = static_cast<std::uint16_t>(ofDay % 1000);
  return date;
}

/// The system's functions only read their source, but do not say so.
VARIANT* readable(const VARIANT& variant) {
  return const_cast<VARIANT*>(&variant);
}

/// Through another type of VARIANT, for the kinds that values do not have.
Value converted(const VARIANT& from, VARTYPE type) {
  Variant other;
  if (FAILED(VariantChangeType(other.out(), readable(from), 0, type)))
    throw RuntimeError::typeMismatch();
  return toValue(other.get());
}

}  // namespace

std::string toUtf8(const wchar_t* text, std::size_t length) {
  return windows::toUtf8({text, length});
}

BSTR newBstr(std::string_view text) {
  const std::wstring wide = windows::toWide(text);
  const BSTR result = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (!result) throw RuntimeError::outOfMemory();
  return result;
}

Variant::Variant(const Value& value) {
  VariantInit(&value_);
  std::visit(Filler{value_}, value.storage());
}

Variant::Variant(const ComRef<IDispatch>& object) {
  value_.vt = VT_DISPATCH;
  value_.pdispVal = ComRef(object).detach();
}

Variant::Variant(const Variant& other) {
  VariantInit(&value_);
  if (FAILED(VariantCopy(&value_, readable(other.value_)))) throw RuntimeError::outOfMemory();
}

Variant Variant::adopt(VARIANT& value) {
  Variant result;
  result.value_ = value;
  VariantInit(&value);
  return result;
}

const VARIANT& followed(const VARIANT& variant) {
  return variant.vt == (VT_BYREF | VT_VARIANT) ? followed(*variant.pvarVal) : variant;
}

Value toValue(const VARIANT& given) {
  const VARIANT& variant = followed(given);
  if (variant.vt & VT_BYREF) {
    Variant copy;
    if (FAILED(VariantCopyInd(copy.out(), readable(variant)))) throw RuntimeError::typeMismatch();
    return toValue(copy.get());
  }
  switch (variant.vt) {
    case VT_EMPTY:
    case VT_ERROR:  // an argument that was left out
      return {};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_I1:
    case VT_UI1:
      return converted(variant, VT_I2);
    case VT_I2:
      return variant.iVal;
    case VT_I4:
    case VT_INT:
      return static_cast<std::int32_t>(variant.lVal);
    case VT_DECIMAL:
      return toDecimal(variant.decVal);
    case VT_DATE:
      return toDate(variant.date);
    case VT_BSTR:
      return toUtf8(variant.bstrVal, SysStringLen(variant.bstrVal));
    case VT_UI2:
      return converted(variant, VT_I4);
    default:
      return converted(variant, VT_DECIMAL);
  }
}

ComRef<IDispatch> toDispatch(const VARIANT& given) {
  const VARIANT& variant = followed(given);
  IUnknown* object = nullptr;
  switch (variant.vt) {
    case VT_DISPATCH:
    case VT_UNKNOWN:
      object = variant.punkVal;
      break;
    case VT_BYREF | VT_DISPATCH:
    case VT_BYREF | VT_UNKNOWN:
      object = *variant.ppunkVal;
      break;
    case VT_EMPTY:
    case VT_ERROR:
      break;
    default:
      throw RuntimeError::typeMismatch();
  }
  ComRef<IDispatch> dispatch;
  if (object &&
      FAILED(object->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(dispatch.out())))) {
    throw RuntimeError::typeMismatch();
  }
  return dispatch;
}

}  // namespace kebu::workbench
