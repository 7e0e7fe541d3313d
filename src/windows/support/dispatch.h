#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/value.h"
#include "windows/support/variant.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// A COM object whose members are called by name. The identifier of a name is asked for once.
/// Errors of a call are RuntimeErrors: 91 for an absent object, 438 for a missing member, 424 for a
/// member that returns no object where one is wanted, 13 or 94 for a value of another type. The
/// description then names the member.
class Dispatch {
 public:
  using Arguments = std::vector<Variant>;

  Dispatch() = default;
  explicit Dispatch(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  explicit operator bool() const { return static_cast<bool>(object_); }
  const ComPtr<IDispatch>& object() const { return object_; }

  /// Whether the object has such a member.
  bool has(std::wstring_view name) const;
  /// Calls a method or reads a property; `name` is a literal.
  Variant call(std::wstring_view name, const Arguments& arguments = {}) const;
  /// Sets a property; an object as such, as "Set" does.
  void put(std::wstring_view name, const Variant& value) const;

  // The same as call(), with the result converted to a type.

  /// An object; an absent one for none.
  Dispatch get(std::wstring_view name, const Arguments& arguments = {}) const;
  Value value(std::wstring_view name, const Arguments& arguments = {}) const;
  std::string text(std::wstring_view name, const Arguments& arguments = {}) const;
  std::int32_t number(std::wstring_view name, const Arguments& arguments = {}) const;
  bool flag(std::wstring_view name, const Arguments& arguments = {}) const;
  /// An array of texts.
  std::vector<std::string> texts(std::wstring_view name, const Arguments& arguments = {}) const;

 private:
  /// Finds the member's identifier, once.
  HRESULT find(std::wstring_view name, DISPID& identifier) const;
  Variant invoke(std::wstring_view name, WORD kind, DISPPARAMS& parameters) const;

  ComPtr<IDispatch> object_;
  mutable std::vector<std::pair<std::wstring_view, DISPID>> identifiers_;
};

}  // namespace kebu::windows
