#include "windows/support/named_object_face.h"

#include "windows/support/automation.h"
#include "windows/support/identity.h"

namespace kebu::windows {

namespace {

constexpr Member<host::NamedObject> members[] = {
    {L"Name", [](host::NamedObject& object, const Arguments&) { return Variant(object.Name()); },
     [](host::NamedObject& object, const Arguments& arguments) {
       object.setName(arguments.text(0));
     }},
};

class NamedObjectFace final : public Automated<host::NamedObject> {
 public:
  explicit NamedObjectFace(const std::shared_ptr<host::NamedObject>& object)
      : Automated(object, members), entry_(object, this) {}

 private:
  FaceEntry entry_;
};

}  // namespace

ComPtr<IDispatch> newNamedObjectFace(const std::shared_ptr<host::NamedObject>& object) {
  return ComPtr<IDispatch>::adopt(new NamedObjectFace(object));
}

}  // namespace kebu::windows
