#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "windows/support/bstr.h"
#include "windows/support/com_error.h"
#include "windows/support/com_ptr.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Owns a VARIANT.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  Variant(std::int16_t value) : Variant() {
    value_.vt = VT_I2;
    value_.iVal = value;
  }
  Variant(std::int32_t value) : Variant() {
    value_.vt = VT_I4;
    value_.lVal = value;
  }
  Variant(bool value) : Variant() {
    value_.vt = VT_BOOL;
    value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  Variant(std::string_view utf8) : Variant() {
    value_.bstrVal = Bstr(utf8).detach();
    value_.vt = VT_BSTR;
  }
  Variant(const std::string& utf8) : Variant(std::string_view(utf8)) {}
  Variant(const char* utf8) : Variant(std::string_view(utf8)) {}
  /// Other pointers would convert to true.
  template <class T>
  Variant(T*) = delete;
  /// "Nothing" when the object is absent.
  Variant(ComPtr<IDispatch> object) : Variant() {
    value_.vt = VT_DISPATCH;
    value_.pdispVal = object.detach();
  }
  /// An object that is not known by IDispatch.
  Variant(ComPtr<IUnknown> object) : Variant() {
    value_.vt = VT_UNKNOWN;
    value_.punkVal = object.detach();
  }
  /// A copy; of a reference, a copy of what it refers to.
  static Variant copyOf(const VARIANT& value) {
    Variant copy;
    check(VariantCopyInd(&copy.value_, const_cast<VARIANT*>(&value)));
    return copy;
  }
  /// An argument that the callee may change.
  static Variant referenceTo(VARIANT_BOOL& flag) {
    Variant reference;
    reference.value_.vt = VT_BYREF | VT_BOOL;
    reference.value_.pboolVal = &flag;
    return reference;
  }
  static Variant null() {
    Variant result;
    result.value_.vt = VT_NULL;
    return result;
  }
  /// An omitted argument.
  static Variant missing() {
    Variant result;
    result.value_.vt = VT_ERROR;
    result.value_.scode = DISP_E_PARAMNOTFOUND;
    return result;
  }
  /// Takes over an array of the element type.
  static Variant adopt(SAFEARRAY* array, VARTYPE elements) {
    Variant result;
    result.value_.vt = static_cast<VARTYPE>(VT_ARRAY | elements);
    result.value_.parray = array;
    return result;
  }

  Variant(const Variant& other) : Variant() {
    check(VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)));
  }
  Variant(Variant&& other) noexcept : value_(other.detach()) {}
  Variant& operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { VariantClear(&value_); }

  VARTYPE type() const { return value_.vt; }
  const VARIANT& get() const { return value_; }
  VARIANT& raw() { return value_; }
  VARIANT* put() {
    VariantClear(&value_);
    return &value_;
  }
  VARIANT detach() {
    VARIANT result = value_;
    VariantInit(&value_);
    return result;
  }

 private:
  VARIANT value_;
};

/// The object in it, references followed; absent for "Nothing" and for an omitted or empty
/// argument. RuntimeError 424 when it holds something else, 430 when the object has no late-bound
/// members.
ComPtr<IDispatch> objectIn(const VARIANT& variant);
/// The VARIANT that a reference refers to; itself when it is none.
const VARIANT& followed(const VARIANT& variant);

}  // namespace kebu::windows
