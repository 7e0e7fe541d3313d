#include "windows/support/safe_array.h"

#include "windows/support/com_error.h"
#include "windows/support/values.h"

namespace kebu::windows {

namespace {

/// The elements of an array, locked while they are looked at.
template <class Element>
class Elements {
 public:
  explicit Elements(SAFEARRAY* array) : array_(array) {
    check(SafeArrayAccessData(array_, reinterpret_cast<void**>(&first_)));
  }
  Elements(const Elements&) = delete;
  Elements& operator=(const Elements&) = delete;
  ~Elements() { SafeArrayUnaccessData(array_); }

  const Element& operator[](std::size_t index) const { return first_[index]; }

 private:
  SAFEARRAY* array_;
  Element* first_ = nullptr;
};

/// The array in it; RuntimeError 13 when it is of another kind.
SAFEARRAY* arrayIn(const VARIANT& variant, VARTYPE elements, UINT dimensions) {
  if (variant.vt != (VT_ARRAY | elements) || !variant.parray ||
      SafeArrayGetDim(variant.parray) != dimensions) {
    throw RuntimeError::typeMismatch();
  }
  return variant.parray;
}

std::size_t length(SAFEARRAY* array, UINT dimension) {
  LONG first = 0;
  LONG last = -1;
  check(SafeArrayGetLBound(array, dimension, &first));
  check(SafeArrayGetUBound(array, dimension, &last));
  return static_cast<std::size_t>(last - first + 1);
}

}  // namespace

std::vector<Value> vectorIn(const VARIANT& variant) {
  if (variant.vt & VT_BYREF) return vectorIn(Variant::copyOf(variant).get());
  std::vector<Value> result;
  if (variant.vt == VT_EMPTY) return result;
  if (variant.vt == (VT_ARRAY | VT_BSTR)) {
    SAFEARRAY* const array = arrayIn(variant, VT_BSTR, 1);
    const Elements<BSTR> texts(array);
    for (std::size_t i = 0; i < length(array, 1); ++i) result.push_back(Bstr::utf8Of(texts[i]));
  } else {
    SAFEARRAY* const array = arrayIn(variant, VT_VARIANT, 1);
    const Elements<VARIANT> values(array);
    for (std::size_t i = 0; i < length(array, 1); ++i) result.push_back(toValue(values[i]));
  }
  return result;
}

Variant textArray(const std::vector<std::string>& texts) {
  SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
  if (!array) throw RuntimeError::outOfMemory();
  Variant result = Variant::adopt(array, VT_BSTR);
  LONG at = 0;
  for (const std::string& text : texts) {
    check(SafeArrayPutElement(array, &at, Bstr(text).get()));  // which copies it
    ++at;
  }
  return result;
}

std::vector<RowValues> rowsIn(const VARIANT& variant) {
  SAFEARRAY* const array = arrayIn(variant, VT_VARIANT, 2);
  const std::size_t fields = length(array, 1);
  std::vector<RowValues> rows(length(array, 2));
  const Elements<VARIANT> cells(array);
  std::size_t next = 0;  // the first dimension varies fastest
  for (RowValues& row : rows) {
    std::vector<Value> values;
    values.reserve(fields);
    for (std::size_t i = 0; i < fields; ++i) {
      const VARIANT& cell = cells[next++];
      values.push_back(cell.vt == VT_EMPTY ? Value(Null{}) : toValue(cell));
    }
    row = RowValues(std::move(values));
  }
  return rows;
}

}  // namespace kebu::windows
