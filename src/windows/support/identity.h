#pragma once

#include <memory>
#include <utility>

#include "common/ref.h"
#include "common/value.h"
#include "windows/support/dispatch.h"
#include "windows/support/values.h"
#include "windows/support/variant.h"
#include "windows/support/windows_api.h"

// Which COM object stands for which of ours. An object has one COM identity: a host's object is
// given back as the object that was put in, and an object of ours that a host passes to us is
// recognised.
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

/// A host's object that is only passed on.
class ForeignObject : public Object, public Foreign {
 public:
  using Role = Object;
  using Foreign::Foreign;
};

/// A variant of a type that `Value` does not have, kept as it came.
class ForeignVariant : public KeptValue {
 public:
  explicit ForeignVariant(Variant variant) : variant_(std::move(variant)) {}
  const Variant& variant() const { return variant_; }
  Value nearest() const override { return toValue(variant_.get()); }

 private:
  Variant variant_;
};

/// Registers a COM object, the face, as standing for an object of ours, for as long as this lives.
/// `face` is the IDispatch that is also its IUnknown.
class FaceEntry {
 public:
  FaceEntry(const std::shared_ptr<Object>& object, IDispatch* face);
  FaceEntry(const FaceEntry&) = delete;
  FaceEntry& operator=(const FaceEntry&) = delete;
  ~FaceEntry();

 private:
  IDispatch* face_;
};

/// The COM object for one of ours or of the host's; absent for an absent one, and for one of ours
/// that has no face.
ComPtr<IDispatch> faceOf(const std::shared_ptr<Object>& object);

/// The COM object that was wrapped, or the face of one of ours; absent for an absent one.
template <class Role>
ComPtr<IDispatch> unwrap(const Ref<Role>& object) {
  if (!object) return nullptr;
  if (const auto* foreign = dynamic_cast<const Foreign*>(object.get())) return foreign->comObject();
  auto* own = dynamic_cast<Object*>(object.get());
  return own ? faceOf(std::shared_ptr<Object>(object.shared(), own)) : nullptr;
}

/// The object of ours that a face stands for; absent for a host's object.
std::shared_ptr<Object> ownObject(IDispatch* object);

/// A COM object in the role that `Adapter` gives it; an object of ours as itself; null for null.
template <class Adapter>
Ref<typename Adapter::Role> wrap(const ComPtr<IDispatch>& object) {
  if (!object) return nullptr;
  if (auto own = std::dynamic_pointer_cast<typename Adapter::Role>(ownObject(object.get()))) {
    return own;
  }
  return makeRef<Adapter>(object);
}

}  // namespace kebu::windows
