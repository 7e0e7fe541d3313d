#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>

#include "common/value.h"
#include "workbench/windows/com_ref.h"

namespace kebu::workbench {

/// A VARIANT that is cleared at its end.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  explicit Variant(const Value& value);
  explicit Variant(std::string_view text) : Variant(Value(text)) {}
  explicit Variant(const std::string& text) : Variant(Value(text)) {}
  explicit Variant(const char* text) : Variant(Value(text)) {}
  explicit Variant(std::int32_t number) : Variant(Value(number)) {}
  explicit Variant(bool flag) : Variant(Value(flag)) {}
  /// Nothing becomes an object variant without an object.
  explicit Variant(const ComRef<IDispatch>& object);
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  Variant& operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { VariantClear(&value_); }
  /// Takes the contents over.
  static Variant adopt(VARIANT& value);

  const VARIANT& get() const { return value_; }
  VARIANT* out() {
    VariantClear(&value_);
    return &value_;
  }
  /// The contents, for somebody else to clear.
  VARIANT detach() {
    const VARIANT value = value_;
    VariantInit(&value_);
    return value;
  }

 private:
  VARIANT value_;
};

/// What stands in it, references followed. An object has no value: RuntimeError 13.
Value toValue(const VARIANT& variant);
/// The object in it; nothing for none. RuntimeError 13 when it holds something else.
ComRef<IDispatch> toDispatch(const VARIANT& variant);
/// The VARIANT that a by-reference one leads to; itself otherwise.
const VARIANT& followed(const VARIANT& variant);

std::string toUtf8(const wchar_t* text, std::size_t length);
BSTR newBstr(std::string_view text);

}  // namespace kebu::workbench
