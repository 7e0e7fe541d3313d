#pragma once

#include <windows.h>

#include <utility>

namespace kebu::workbench {

/// A counted reference to a COM object.
template <class Interface>
class ComRef {
 public:
  ComRef() = default;
  ComRef(std::nullptr_t) {}
  explicit ComRef(Interface* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  ComRef(const ComRef& other) : ComRef(other.object_) {}
  ComRef(ComRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComRef& operator=(ComRef other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComRef() {
    if (object_) object_->Release();
  }
  /// Takes over a reference that somebody else has counted.
  static ComRef adopt(Interface* object) {
    ComRef ref;
    ref.object_ = object;
    return ref;
  }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  /// The reference, for somebody else to count down.
  Interface* detach() { return std::exchange(object_, nullptr); }
  /// Where a call is to put a reference.
  Interface** out() {
    *this = ComRef();
    return &object_;
  }

 private:
  Interface* object_ = nullptr;
};

}  // namespace kebu::workbench
