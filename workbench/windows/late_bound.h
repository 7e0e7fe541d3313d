#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "common/ref.h"
#include "host/named_object.h"
#include "workbench/windows/variant.h"

namespace kebu::workbench {

/// Calls somebody else's object by the names of its members. RuntimeError with
/// the object's own error, 438 for a member that it does not have, 91 for no object.
class LateBound {
 public:
  LateBound() = default;
  explicit LateBound(ComRef<IDispatch> object) : object_(std::move(object)) {}

  const ComRef<IDispatch>& object() const { return object_; }
  explicit operator bool() const { return static_cast<bool>(object_); }

  Variant get(const char* member, std::initializer_list<Variant> arguments = {}) const {
    return invoke(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments);
  }
  Variant call(const char* member, std::initializer_list<Variant> arguments = {}) const {
    return invoke(member, DISPATCH_METHOD, arguments);
  }
  void put(const char* member, const Variant& value) const {
    invoke(member, DISPATCH_PROPERTYPUT, {value});
  }
  void set(const char* member, const ComRef<IDispatch>& value) const {
    invoke(member, DISPATCH_PROPERTYPUTREF, {Variant(value)});
  }

  Value value(const char* member) const { return toValue(get(member).get()); }
  LateBound part(const char* member) const { return LateBound(toDispatch(get(member).get())); }

 private:
  Variant invoke(const char* member, WORD flags, std::initializer_list<Variant> arguments) const;

  ComRef<IDispatch> object_;
};

/// A window or control of the plug-in, as the host's object models keep it.
class ForeignObject : public host::NamedObject {
 public:
  explicit ForeignObject(ComRef<IDispatch> object) : object_(std::move(object)) {}
  std::string Name() const override;
  void setName(const std::string& name) override;
  const ComRef<IDispatch>& object() const { return object_.object(); }

  /// Nothing for no object.
  static Ref<host::NamedObject> of(const ComRef<IDispatch>& object);
  /// The object that stands behind a reference of `of`.
  static ComRef<IDispatch> behind(const Ref<host::NamedObject>& object);

 private:
  LateBound object_;
};

}  // namespace kebu::workbench
