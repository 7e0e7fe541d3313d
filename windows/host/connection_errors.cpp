#include "windows/host/connection_errors.h"

#include <memory>

#include "windows/support/automation.h"

namespace kebu::windows {

namespace {

constexpr Member<ado::Error> errorMembers[] = {
    {L"Description", [](ado::Error& e, const Arguments&) { return Variant(e.description); }},
    {L"Number", [](ado::Error& e, const Arguments&) { return Variant(e.number); }},
    {L"Source", [](ado::Error& e, const Arguments&) { return Variant(e.source); }},
    {L"NativeError", [](ado::Error& e, const Arguments&) { return Variant(e.nativeError); }},
    {L"SQLState", [](ado::Error& e, const Arguments&) { return Variant(e.sqlState); }},
};

constexpr Member<ado::Errors> collectionMembers[] = {
    {L"Item",
     [](ado::Errors& errors, const Arguments& arguments) {
       const auto index = static_cast<std::size_t>(arguments.number(0));
       if (index >= errors.size()) throw errorOf(DISP_E_BADINDEX);
       return Variant(
           automated<ado::Error>(std::make_shared<ado::Error>(errors[index]), errorMembers));
     }},
    {L"Count", [](ado::Errors& errors,
                  const Arguments&) { return Variant(static_cast<std::int32_t>(errors.size())); }},
};

}  // namespace

ComPtr<IDispatch> newErrorCollection(const ado::Errors& errors) {
  return automated<ado::Errors>(std::make_shared<ado::Errors>(errors), collectionMembers);
}

}  // namespace kebu::windows
