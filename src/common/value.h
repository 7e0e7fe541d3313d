#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "common/date.h"
#include "common/decimal.h"

namespace kebu {

/// An object of the host that the plug-in passes on without knowing its class.
class Object {
 public:
  virtual ~Object() = default;
};

class Value;

/// A value of a kind that `Value` does not have, kept as it came.
class KeptValue : public Object {
 public:
  /// The value of the nearest kind that `Value` has; RuntimeError 13 when there is none.
  virtual Value nearest() const = 0;
};

struct Null {
  friend bool operator==(Null, Null) { return true; }
};

/// A variant: what ADO fields, the host's properties and the controls carry.
/// Empty (never assigned) and null (a database null) are different values.
class Value {
 public:
  using Storage = std::variant<std::monostate, Null, bool, std::int16_t, std::int32_t, Decimal,
                               Date, std::string, std::shared_ptr<Object>>;

  Value() = default;
  Value(Null) : storage_(Null{}) {}
  Value(bool v) : storage_(v) {}
  Value(std::int16_t v) : storage_(v) {}
  Value(std::int32_t v) : storage_(v) {}
  Value(Decimal v) : storage_(v) {}
  Value(Date v) : storage_(v) {}
  Value(std::string v) : storage_(std::move(v)) {}
  Value(std::string_view v) : storage_(std::string(v)) {}
  Value(const char* v) : storage_(std::string(v)) {}
  Value(std::shared_ptr<Object> v) : storage_(std::move(v)) {}

  bool isEmpty() const { return holds<std::monostate>(); }
  bool isNull() const { return holds<Null>(); }
  bool isText() const { return holds<std::string>(); }
  bool isInteger() const { return holds<std::int16_t>() || holds<std::int32_t>(); }
  bool isNumber() const { return isInteger() || holds<Decimal>() || holds<bool>(); }
  template <class T>
  bool holds() const {
    return std::holds_alternative<T>(storage_);
  }
  template <class T>
  const T& as() const {
    return std::get<T>(storage_);
  }
  const Storage& storage() const { return storage_; }

  /// Same kind and same content (an integer 1 and a decimal 1 differ; see
  /// `equalAsVariants` in convert.h for the run time's own comparison).
  friend bool operator==(const Value&, const Value&) = default;

 private:
  Storage storage_;
};

}  // namespace kebu
