#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <oaidl.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/value.h"
#include "windows/support/variant.h"

namespace kebu::windows {

/// A COM object whose members are called by their names. Asks the object for a
/// name's identifier once. What a call raises is a RuntimeError; using an
/// absent object is 91, a member that it lacks 438, one that answers no object
/// where one belongs 424, another kind of value 13 or 94: then the description
/// tells the member.
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

  // The same as call(), with the answer in the kind that is wanted.

  /// The object that a member answers; an absent one when it answers none.
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
