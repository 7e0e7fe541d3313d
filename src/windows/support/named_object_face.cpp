#include "windows/support/named_object_face.h"

#include "common/nulls.h"
#include "host/window_members.h"
#include "windows/support/automation.h"
#include "windows/support/identity.h"

namespace kebu::windows {

namespace {

using host::NamedObject;
using Argument = const Arguments&;

constexpr Member<NamedObject> name = {
    L"Name", [](NamedObject& object, Argument) { return Variant(object.Name()); },
    [](NamedObject& object, Argument arguments) { object.setName(arguments.text(0)); }};

constexpr Member<NamedObject> namedObjectMembers[] = {name};

host::WindowMembers& windowOf(NamedObject& object) {
  return dynamic_cast<host::WindowMembers&>(object);
}

Value valueIfGiven(Argument arguments, std::size_t index) {
  return arguments.has(index) ? keptValue(arguments.at(index)) : Value();
}

/// The value itself, whatever its type, unless it is empty, null or blank.
Variant nvl(NamedObject& /*window*/, Argument arguments) {
  const bool isNothing = NVL(keptValue(arguments.at(0)), Value()).isEmpty();
  return Variant::copyOf(arguments.at(isNothing ? 1 : 0));
}

/// The public members of the plug-in's window.
constexpr Member<NamedObject> windowMembers[] = {
    name,
    {L"NVL", nvl},
    {L"CDecN", [](NamedObject&, Argument a) { return toVariant(CDecN(valueIfGiven(a, 0))); }},
    {L"RTrimN", [](NamedObject&, Argument a) { return Variant(RTrimN(keptValue(a.at(0)))); }},
    {L"VisualizzaErrore",
     [](NamedObject& window, Argument a) {
       return Variant(windowOf(window).VisualizzaErrore(a.text(0)));
     }},
    {L"ChangeStatus",
     [](NamedObject& window, Argument a) {
       const auto frame = std::dynamic_pointer_cast<NamedObject>(ownObject(a.object(0).get()));
       windowOf(window).ChangeStatus(frame);
       return nothing();
     }},
    {L"TranslateString",
     [](NamedObject& window, Argument a) {
       return Variant(windowOf(window).TranslateString(a.text(0)));
     }},
    {L"VLTMsgBox",
     [](NamedObject& window, Argument a) {
       return Variant(windowOf(window).VLTMsgBox(a.value(0), a.number(1, 0), valueIfGiven(a, 2),
                                                 valueIfGiven(a, 3)));
     }},
    {L"VLTMsgBoxFromId",
     [](NamedObject& window, Argument a) {
       return Variant(windowOf(window).VLTMsgBoxFromId(a.number(0), a.number(1, 0),
                                                       valueIfGiven(a, 2), valueIfGiven(a, 3)));
     }},
};

std::span<const Member<NamedObject>> membersOf(const NamedObject& object) {
  if (dynamic_cast<const host::WindowMembers*>(&object)) return windowMembers;
  return namedObjectMembers;
}

class NamedObjectFace final : public Automated<NamedObject> {
 public:
  explicit NamedObjectFace(const std::shared_ptr<NamedObject>& object)
      : Automated(object, membersOf(*object)), entry_(object, this) {}

 private:
  FaceEntry entry_;
};

}  // namespace

ComPtr<IDispatch> newNamedObjectFace(const std::shared_ptr<NamedObject>& object) {
  return ComPtr<IDispatch>::adopt(new NamedObjectFace(object));
}

}  // namespace kebu::windows
