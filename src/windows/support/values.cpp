#include "windows/support/values.h"

#include <type_traits>

#include "common/automation_date.h"
#include "windows/support/identity.h"

namespace kebu::windows {

namespace {

Decimal fromAutomationDecimal(const DECIMAL& decimal) {
  if ((decimal.sign & ~DECIMAL_NEG) != 0) throw RuntimeError::invalidCall();
  return {{decimal.Lo32, decimal.Mid32, decimal.Hi32}, decimal.scale, decimal.sign != 0};
}

/// Any other kind of number.
Decimal convertedDecimal(const VARIANT& variant) {
  Variant decimal;
  check(VariantChangeType(decimal.put(), const_cast<VARIANT*>(&variant), 0, VT_DECIMAL));
  return fromAutomationDecimal(decimal.get().decVal);
}

Value objectValue(const ComPtr<IDispatch>& object) {
  const Ref<Object> held = wrap<ForeignObject>(object);
  return held.shared();
}

/// Whether the variant comes back as it was from the value made of it.
bool survives(const VARIANT& variant) {
  switch (variant.vt) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_I2:
    case VT_I4:
    case VT_DECIMAL:
    case VT_DISPATCH:
      return true;
    case VT_BOOL:
      return variant.boolVal == VARIANT_TRUE || variant.boolVal == VARIANT_FALSE;
    case VT_BSTR:
      return SysStringByteLen(variant.bstrVal) % sizeof(OLECHAR) == 0;  // else it holds bytes
    default:
      return false;
  }
}

struct ValueToVariant {
  Variant operator()(std::monostate) const { return {}; }
  Variant operator()(Null) const { return Variant::null(); }
  Variant operator()(bool value) const { return value; }
  Variant operator()(std::int16_t value) const { return value; }
  Variant operator()(std::int32_t value) const { return value; }
  Variant operator()(const Decimal& value) const {
    Variant result;
    DECIMAL& decimal = result.raw().decVal;
    decimal.Lo32 = value.mantissa()[0];
    decimal.Mid32 = value.mantissa()[1];
    decimal.Hi32 = value.mantissa()[2];
    decimal.scale = static_cast<BYTE>(value.scale());
    decimal.sign = value.isNegative() ? DECIMAL_NEG : 0;
    result.raw().vt = VT_DECIMAL;  // last: the number begins at the same place
    return result;
  }
  Variant operator()(const Date& value) const {
    Variant result;
    result.raw().date = toAutomationDate(value);
    result.raw().vt = VT_DATE;
    return result;
  }
  Variant operator()(const std::string& value) const { return value; }
  Variant operator()(const std::shared_ptr<Object>& value) const {
    const auto* kept = dynamic_cast<const ForeignVariant*>(value.get());
    return kept ? kept->variant() : Variant(faceOf(value));
  }
};

}  // namespace

ComPtr<IDispatch> objectIn(const VARIANT& variant) {
  if (variant.vt & VT_BYREF) return objectIn(Variant::copyOf(variant).get());
  switch (variant.vt) {
    case VT_EMPTY:
      return nullptr;
    case VT_ERROR:
      if (variant.scode == DISP_E_PARAMNOTFOUND) return nullptr;
      break;
    case VT_DISPATCH:
    case VT_UNKNOWN: {
      if (!variant.punkVal) return nullptr;
      const auto object = ComPtr<IUnknown>(variant.punkVal).as<IDispatch>();
      if (!object) throw errorOf(E_NOINTERFACE);
      return object;
    }
    default:
      break;
  }
  constexpr std::int32_t objectRequired = 424;
  throw RuntimeError(objectRequired, "Object required");
}

const VARIANT& followed(const VARIANT& variant) {
  return variant.vt == (VT_BYREF | VT_VARIANT) ? followed(*variant.pvarVal) : variant;
}

Value toValue(const VARIANT& variant) {
  if (variant.vt & VT_BYREF) return toValue(Variant::copyOf(variant).get());
  switch (variant.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_I1:
      return static_cast<std::int16_t>(static_cast<signed char>(variant.cVal));
    case VT_UI1:
      return static_cast<std::int16_t>(variant.bVal);
    case VT_I2:
      return static_cast<std::int16_t>(variant.iVal);
    case VT_UI2:
      return static_cast<std::int32_t>(variant.uiVal);
    case VT_I4:
    case VT_INT:
      return static_cast<std::int32_t>(variant.lVal);
    case VT_UI4:
    case VT_UINT:
      return Decimal(static_cast<std::int64_t>(variant.ulVal));
    case VT_I8:
      return Decimal(static_cast<std::int64_t>(variant.llVal));
    case VT_DECIMAL:
      return fromAutomationDecimal(variant.decVal);
    case VT_UI8:
    case VT_R4:
    case VT_R8:
      return convertedDecimal(variant);
    case VT_CY:
      return Decimal::scaled(variant.cyVal.int64, 4);
    case VT_DATE:
      return fromAutomationDate(variant.date);
    case VT_BSTR:
      return Bstr::utf8Of(variant.bstrVal);
    case VT_ERROR:
      if (variant.scode == DISP_E_PARAMNOTFOUND) return {};
      throw RuntimeError::typeMismatch();
    case VT_DISPATCH:
      return objectValue(ComPtr<IDispatch>(variant.pdispVal));
    case VT_UNKNOWN:
      return objectValue(ComPtr<IUnknown>(variant.punkVal).as<IDispatch>());
    default:
      throw RuntimeError::typeMismatch();
  }
}

Value keptValue(const VARIANT& variant) {
  Variant copy = Variant::copyOf(variant);
  if (survives(copy.get())) return toValue(copy.get());
  return std::shared_ptr<Object>(std::make_shared<ForeignVariant>(std::move(copy)));
}

Variant toVariant(const Value& value) {
  return std::visit(ValueToVariant(), value.storage());
}

}  // namespace kebu::windows
