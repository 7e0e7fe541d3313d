#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "common/error.h"

namespace kebu {

/// A shared reference to an object that may be absent. Using an absent one raises
/// RuntimeError 91: a host that offers no such object leads to an error message
/// and not to a crash.
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  template <class U>
  Ref(std::shared_ptr<U> object) : object_(std::move(object)) {}
  template <class U>
  Ref(const Ref<U>& other) : object_(other.shared()) {}

  T* operator->() const { return &**this; }
  T& operator*() const {
    if (!object_) throw RuntimeError::objectNotSet();
    return *object_;
  }
  explicit operator bool() const { return object_ != nullptr; }
  T* get() const { return object_.get(); }
  const std::shared_ptr<T>& shared() const { return object_; }
  void reset() { object_.reset(); }

  friend bool operator==(const Ref& a, const Ref& b) { return a.object_ == b.object_; }

 private:
  std::shared_ptr<T> object_;
};

template <class T, class... Args>
Ref<T> makeRef(Args&&... args) {
  return std::make_shared<T>(std::forward<Args>(args)...);
}

}  // namespace kebu
