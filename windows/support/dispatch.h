#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <oaidl.h>

#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "windows/support/variant.h"

namespace kebu::windows {

/// A COM object whose members are called by their names. Asks the object for a
/// name's identifier once. What a call raises is a RuntimeError; using an
/// absent object is 91, a member that it lacks 438.
class Dispatch {
public:
  using Arguments = std::initializer_list<Variant>;

  Dispatch() = default;
  explicit Dispatch(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  explicit operator bool() const { return static_cast<bool>(object_); }
  const ComPtr<IDispatch> &object() const { return object_; }

  /// Calls a method or reads a property; `name` is a literal.
  Variant call(std::wstring_view name, Arguments arguments = {}) const;
  /// Sets a property; an object as such, as "Set" does.
  void put(std::wstring_view name, const Variant &value) const;
  /// The object that a member answers; an absent one when it answers none.
  Dispatch get(std::wstring_view name, Arguments arguments = {}) const;

private:
  DISPID identifier(std::wstring_view name) const;
  Variant invoke(DISPID member, WORD kind, DISPPARAMS &parameters) const;

  ComPtr<IDispatch> object_;
  mutable std::vector<std::pair<std::wstring_view, DISPID>> identifiers_;
};

} // namespace kebu::windows
