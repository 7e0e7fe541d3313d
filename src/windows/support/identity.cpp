#include "windows/support/identity.h"

#include <algorithm>
#include <mutex>
#include <optional>
#include <vector>

#include "host/named_object.h"
#include "windows/support/named_object_face.h"

namespace kebu::windows {

namespace {

struct Face {
  IDispatch* face;
  std::weak_ptr<Object> object;
  const void* whole;
};

/// All faces. Each lives in the apartment of its window, and only that looks for it.
std::vector<Face> faces;
std::mutex guard;

/// The address of the whole object, whichever of its bases is given.
const void* wholeOf(const Object& object) {
  return dynamic_cast<const void*>(&object);
}

template <class Condition>
std::optional<Face> find(Condition&& holds) {
  const std::lock_guard lock(guard);
  const auto found = std::ranges::find_if(faces, holds);
  return found == faces.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

FaceEntry::FaceEntry(const std::shared_ptr<Object>& object, IDispatch* face) : face_(face) {
  const std::lock_guard lock(guard);
  faces.push_back({face, object, wholeOf(*object)});
}

FaceEntry::~FaceEntry() {
  const std::lock_guard lock(guard);
  std::erase_if(faces, [this](const Face& entry) { return entry.face == face_; });
}

ComPtr<IDispatch> faceOf(const std::shared_ptr<Object>& object) {
  if (!object) return nullptr;
  if (const auto* foreign = dynamic_cast<const Foreign*>(object.get())) return foreign->comObject();
  const void* const whole = wholeOf(*object);
  if (const auto known = find([&](const Face& entry) { return entry.whole == whole; })) {
    return ComPtr<IDispatch>(known->face);
  }
  const auto named = std::dynamic_pointer_cast<host::NamedObject>(object);
  return named ? newNamedObjectFace(named) : nullptr;
}

std::shared_ptr<Object> ownObject(IDispatch* object) {
  // Two pointers mean the same object when their IUnknowns are the same.
  const auto identity = ComPtr<IDispatch>(object).as<IUnknown>();
  const auto known =
      find([&](const Face& entry) { return static_cast<IUnknown*>(entry.face) == identity.get(); });
  return known ? known->object.lock() : nullptr;
}

}  // namespace kebu::windows
