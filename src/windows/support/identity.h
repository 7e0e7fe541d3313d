#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <oaidl.h>

#include <memory>
#include <utility>

#include "common/ref.h"
#include "common/value.h"
#include "windows/support/dispatch.h"
#include "windows/support/variant.h"

// Which COM object stands for which of ours. An object has one COM identity: a
// host's object that was put in comes out again as itself, and so does an
// object of ours that a host hands back.
namespace kebu::windows {

/// A host's COM object in one of the roles of ado/ and host/.
class Foreign {
 public:
  explicit Foreign(ComPtr<IDispatch> object) : object_(std::move(object)) {}
  Foreign(const Foreign&) = delete;
  Foreign& operator=(const Foreign&) = delete;
  virtual ~Foreign() = default;

  const ComPtr<IDispatch>& comObject() const { return object_.object(); }

 protected:
  Dispatch object_;
};

/// One that is only passed on.
class ForeignObject : public Object, public Foreign {
 public:
  using Role = Object;
  using Foreign::Foreign;
};

/// A variant of a kind that no value can be, only passed on.
class ForeignVariant : public Object {
 public:
  explicit ForeignVariant(Variant variant) : variant_(std::move(variant)) {}
  const Variant& variant() const { return variant_; }

 private:
  Variant variant_;
};

/// A COM face tells that it stands for an object of ours, for as long as this
/// lives. `face` is the IDispatch that is also its IUnknown.
class FaceEntry {
 public:
  FaceEntry(const std::shared_ptr<Object>& object, IDispatch* face);
  FaceEntry(const FaceEntry&) = delete;
  FaceEntry& operator=(const FaceEntry&) = delete;
  ~FaceEntry();

 private:
  IDispatch* face_;
};

/// The COM object for one of ours or of the host's; absent for an absent one,
/// and for one of ours that no host is to see.
ComPtr<IDispatch> faceOf(const std::shared_ptr<Object>& object);

/// The very object that was wrapped, or the face of one of ours; absent for an
/// absent one.
template <class Role>
ComPtr<IDispatch> unwrap(const Ref<Role>& object) {
  if (!object) return nullptr;
  if (const auto* foreign = dynamic_cast<const Foreign*>(object.get())) return foreign->comObject();
  auto* own = dynamic_cast<Object*>(object.get());
  return own ? faceOf(std::shared_ptr<Object>(object.shared(), own)) : nullptr;
}

/// Our own object behind a face of this library; absent for the host's.
std::shared_ptr<Object> ownObject(IDispatch* object);

/// A COM object in the role that `Adapter` gives it; our own objects as they
/// are, nothing for nothing.
template <class Adapter>
Ref<typename Adapter::Role> wrap(const ComPtr<IDispatch>& object) {
  if (!object) return nullptr;
  if (auto own = std::dynamic_pointer_cast<typename Adapter::Role>(ownObject(object.get()))) {
    return own;
  }
  return makeRef<Adapter>(object);
}

}  // namespace kebu::windows
