#include "tests/windows/same_variant.h"

#include <algorithm>
#include <cstring>

#include "windows/support/safe_array.h"

namespace kebu::tests {

namespace {

IUnknown* identity(const windows::Variant& variant) {
  return windows::objectIn(variant.get()).as<IUnknown>().get();  // held by the variant
}

bool haveSameBytes(SAFEARRAY& a, SAFEARRAY& b) {
  if (a.cDims != 1 || b.cDims != 1) return false;
  const ULONG size = a.rgsabound[0].cElements;
  const auto* const bytes = static_cast<const BYTE*>(a.pvData);
  return size == b.rgsabound[0].cElements &&
         std::equal(bytes, bytes + size, static_cast<const BYTE*>(b.pvData));
}

std::size_t sizeOf(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_BOOL:
    case VT_I2:
    case VT_UI2:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    default:
      return 8;
  }
}

}  // namespace

bool isSame(const windows::Variant& a, const windows::Variant& b) {
  if (a.type() != b.type()) return false;
  switch (a.type()) {
    case VT_EMPTY:
    case VT_NULL:
      return true;
    case VT_DISPATCH:
      return identity(a) == identity(b);
    case VT_UNKNOWN:
      return a.get().punkVal == b.get().punkVal;
    case VT_BSTR: {
      const UINT size = SysStringByteLen(a.get().bstrVal);
      const bool isSameSize = size == SysStringByteLen(b.get().bstrVal);
      return isSameSize && (!size || !std::memcmp(a.get().bstrVal, b.get().bstrVal, size));
    }
    case VT_ARRAY | VT_UI1:
      if (!a.get().parray || !b.get().parray) return a.get().parray == b.get().parray;
      return haveSameBytes(*a.get().parray, *b.get().parray);
    case VT_DECIMAL:
      return VarDecCmp(const_cast<DECIMAL*>(&a.get().decVal),
                       const_cast<DECIMAL*>(&b.get().decVal)) == static_cast<HRESULT>(VARCMP_EQ);
    default:
      if (a.type() & VT_ARRAY) return windows::vectorIn(a.get()) == windows::vectorIn(b.get());
      // Numbers and dates: no other has the same bytes, not even a NaN.
      return std::memcmp(&a.get().llVal, &b.get().llVal, sizeOf(a.type())) == 0;
  }
}

}  // namespace kebu::tests
