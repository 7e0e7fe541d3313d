#include "windows/ado/error_collection.h"

#include <memory>
#include <vector>

#include "windows/support/automation.h"
#include "windows/support/dispatch.h"
#include "windows/support/enumerator.h"
#include "windows/support/identity.h"

namespace kebu::windows {

namespace {

RuntimeError noSuchItem() {
  return {3265,
          "Item cannot be found in the collection corresponding to the requested name or ordinal.",
          "ADODB"};
}

constexpr Member<ado::Error> errorMembers[] = {
    {L"Description", [](ado::Error& e, const Arguments&) { return Variant(e.description); }},
    {L"Number", [](ado::Error& e, const Arguments&) { return Variant(e.number); }},
    {L"Source", [](ado::Error& e, const Arguments&) { return Variant(e.source); }},
    {L"NativeError", [](ado::Error& e, const Arguments&) { return Variant(e.nativeError); }},
    {L"SQLState", [](ado::Error& e, const Arguments&) { return Variant(e.sqlState); }},
};

Variant entryOf(const ado::Error& error) {
  return Variant(automated<ado::Error>(std::make_shared<ado::Error>(error), errorMembers));
}

constexpr Member<ado::Errors> collectionMembers[] = {
    {L"Item",
     [](ado::Errors& errors, const Arguments& arguments) {
       const auto index = static_cast<std::size_t>(arguments.number(0));
       if (index >= errors.size()) throw noSuchItem();
       return entryOf(errors[index]);
     }},
    {newEnumMember,
     [](ado::Errors& errors, const Arguments&) {
       std::vector<Variant> entries;
       for (const ado::Error& error : errors) entries.push_back(entryOf(error));
       return Variant(ComPtr<IUnknown>::adopt(new Variants(std::move(entries))));
     }},
    {L"Count", [](ado::Errors& errors,
                  const Arguments&) { return Variant(static_cast<std::int32_t>(errors.size())); }},
};

}  // namespace

ado::Errors readErrors(IDispatch* collection) {
  ado::Errors errors;
  if (!collection) return errors;
  const Dispatch list{ComPtr<IDispatch>(collection)};
  const std::int32_t count = list.number(L"Count");
  for (std::int32_t i = 0; i < count; ++i) {
    const Dispatch entry = list.get(L"Item", {i});
    errors.push_back({entry.number(L"Number"), entry.text(L"Description"), entry.text(L"Source"),
                      entry.number(L"NativeError"), entry.text(L"SQLState")});
  }
  return errors;
}

ComPtr<IDispatch> errorCollectionOf(const ado::ErrorSource& connection) {
  if (const auto* adoConnection = dynamic_cast<const Foreign*>(&connection)) {
    return Dispatch(adoConnection->comObject()).get(L"Errors").object();
  }
  return newErrorCollection(connection.errors());
}

ComPtr<IDispatch> newErrorCollection(const ado::Errors& errors) {
  return automated<ado::Errors>(std::make_shared<ado::Errors>(errors), collectionMembers);
}

}  // namespace kebu::windows
