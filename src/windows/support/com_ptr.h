#pragma once

#include <utility>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// One counted reference to a COM object, or none.
template <class T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}
  /// Adds a reference of its own.
  explicit ComPtr(T* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  /// Takes over a reference that was already added.
  static ComPtr adopt(T* object) {
    ComPtr result;
    result.object_ = object;
    return result;
  }

  T* get() const { return object_; }
  T* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  T* detach() { return std::exchange(object_, nullptr); }
  void reset() { *this = ComPtr(); }
  /// For a function that returns an object through an out parameter.
  T** put() {
    reset();
    return &object_;
  }
  void** putVoid() { return reinterpret_cast<void**>(put()); }

  /// Another interface of the object; absent when it does not have it.
  template <class U>
  ComPtr<U> as() const {
    ComPtr<U> other;
    if (object_) object_->QueryInterface(__uuidof(U), other.putVoid());
    return other;
  }

 private:
  T* object_ = nullptr;
};

/// Assigns an object to an out parameter, with a reference of its own.
template <class T>
HRESULT copyTo(T* object, T** target) {
  if (!target) return E_POINTER;
  *target = object;
  if (object) object->AddRef();
  return S_OK;
}

}  // namespace kebu::windows
