#include "tests/windows/same_variant.h"

#include <algorithm>

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

}  // namespace

bool isSame(const windows::Variant& a, const windows::Variant& b) {
  if (a.type() != b.type()) return false;
  switch (a.type()) {
    case VT_EMPTY:
    case VT_NULL:
      return true;
    case VT_DISPATCH:
      return identity(a) == identity(b);
    case VT_ARRAY | VT_UI1:
      return haveSameBytes(*a.get().parray, *b.get().parray);
    default:
      return VarCmp(const_cast<VARIANT*>(&a.get()), const_cast<VARIANT*>(&b.get()), 0, 0) ==
             static_cast<HRESULT>(VARCMP_EQ);
  }
}

}  // namespace kebu::tests
