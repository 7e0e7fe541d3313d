#include "windows/support/identity.h"

#include <map>

#include "host/named_object.h"
#include "windows/support/named_object_face.h"

namespace kebu::windows {

namespace {

/// The faces that there are, by the whole object that each stands for.
std::map<const void *, IDispatch *> &faces() {
  static std::map<const void *, IDispatch *> all;
  return all;
}

const void *wholeOf(const Object &object) {
  return dynamic_cast<const void *>(&object);
}

} // namespace

FaceEntry::FaceEntry(const Object &object, IDispatch *face)
    : object_(wholeOf(object)) {
  faces()[object_] = face;
}

FaceEntry::~FaceEntry() { faces().erase(object_); }

ComPtr<IDispatch> faceOf(const std::shared_ptr<Object> &object) {
  if (!object)
    return nullptr;
  if (const auto *foreign = dynamic_cast<const Foreign *>(object.get()))
    return foreign->comObject();
  const auto face = faces().find(wholeOf(*object));
  if (face != faces().end())
    return ComPtr<IDispatch>(face->second);
  const auto named = std::dynamic_pointer_cast<host::NamedObject>(object);
  return named ? newNamedObjectFace(named) : nullptr;
}

std::shared_ptr<Object> ownObject(IDispatch *object) {
  const auto own = ComPtr<IDispatch>(object).as<IOwnObject>();
  return own ? own->object() : nullptr;
}

} // namespace kebu::windows
