#include "windows/host/foreign_services.h"

#include "common/convert.h"
#include "windows/ado/ado_objects.h"
#include "windows/ado/error_collection.h"
#include "windows/host/host_objects.h"
#include "windows/support/values.h"

namespace kebu::windows {

namespace {

Ref<host::NamedObject> registerIn(const Dispatch& model, const std::string& name,
                                  const Ref<host::NamedObject>& object, std::int32_t kind,
                                  const std::string& description) {
  const Dispatch entry = model.get(L"Register", {name, unwrap(object), kind, description});
  return wrapNamedObject(entry.object().get());
}

host::LookupDefinition definition(const Dispatch& list) {
  return {list.text(L"Title"), list.text(L"Statement"), list.texts(L"Captions"), list.text(L"Key")};
}

/// A list of keys goes as one argument each.
std::vector<Variant> withKeys(const std::string& table, const std::string& company,
                              const std::vector<std::string>& keys) {
  std::vector<Variant> arguments{table, company};
  arguments.insert(arguments.end(), keys.begin(), keys.end());
  return arguments;
}

}  // namespace

std::string ForeignMessageService::Translate(const std::string& text) {
  return object_.text(L"Translate", {text});
}

std::int32_t ForeignMessageService::MsgBox(const Value& prompt, std::int32_t buttons,
                                           const Value& title, const Value& context) {
  return object_.number(L"MsgBox",
                        {toVariant(prompt), buttons, toVariant(title), toVariant(context)});
}

std::int32_t ForeignMessageService::MsgBoxFromId(std::int32_t id, std::int32_t buttons,
                                                 const Value& title, const Value& context) {
  return object_.number(L"MsgBoxFromId", {id, buttons, toVariant(title), toVariant(context)});
}

void ForeignLogService::SetError(std::int32_t number, const std::string& description,
                                 const std::string& source) {
  object_.call(L"SetError", {number, description, source});
}

void ForeignLogService::SetConnectionErrors(const ado::ErrorSource& connection) {
  object_.call(L"SetConnectionErrors", {errorCollectionOf(connection)});
}

std::int16_t ForeignLogService::ShowError(const std::string& application,
                                          const std::string& caption, const std::string& procedure,
                                          std::int32_t style) {
  return toInt16(object_.number(L"ShowError", {application, caption, procedure, style}));
}

Ref<ado::Connection> ForeignConnectionProvider::NewConnection() {
  return wrapConnection(object_.get(L"NewConnection").object().get());
}

std::string ForeignEnvironmentService::GetPath(std::int32_t kind, const std::string& argument) {
  return object_.text(L"GetPath", {kind, argument});
}

std::string ForeignSqlDecodeService::DocumentType(const std::string& company,
                                                  const std::string& code) {
  return object_.text(L"DocumentType", {company, code});
}

std::string ForeignSqlDecodeService::Customer(const std::string& company, const std::string& code) {
  return object_.text(L"Customer", {company, code});
}

std::string ForeignSqlDecodeService::Code(const std::string& table, const std::string& company,
                                          const std::vector<std::string>& keys) {
  return object_.text(L"Code", withKeys(table, company, keys));
}

host::LookupDefinition ForeignLookupService::DocumentTypes(const std::string& company) {
  return definition(object_.get(L"DocumentTypes", {company}));
}

host::LookupDefinition ForeignLookupService::Customers(const std::string& company) {
  return definition(object_.get(L"Customers", {company}));
}

host::LookupDefinition ForeignLookupService::CustomerNames(const std::string& company) {
  return definition(object_.get(L"CustomerNames", {company}));
}

host::LookupDefinition ForeignLookupService::Suppliers(const std::string& company) {
  return definition(object_.get(L"Suppliers", {company}));
}

host::LookupDefinition ForeignLookupService::Configurator(const std::string& company) {
  return definition(object_.get(L"Configurator", {company}));
}

host::LookupDefinition ForeignLookupService::Codes(const std::string& table,
                                                   const std::string& company,
                                                   const std::vector<std::string>& upperKeys) {
  return definition(object_.get(L"Codes", withKeys(table, company, upperKeys)));
}

Value ForeignSavedFilterService::Load(const std::string& key, const std::string& name) {
  return object_.value(L"Load", {key, name});
}

void ForeignSavedFilterService::Save(const std::string& key, const std::string& name,
                                     const std::string& text, bool isDefault) {
  object_.call(L"Save", {key, name, text, isDefault});
}

Ref<host::NamedObject> ForeignLayoutModel::Register(const std::string& name,
                                                    const Ref<host::NamedObject>& object,
                                                    std::int32_t kind,
                                                    const std::string& description) {
  return registerIn(object_, name, object, kind, description);
}

Ref<host::NamedObject> ForeignScriptModel::Register(const std::string& name,
                                                    const Ref<host::NamedObject>& object,
                                                    std::int32_t kind,
                                                    const std::string& description) {
  return registerIn(object_, name, object, kind, description);
}

void ForeignScriptModel::RunEvent(const std::string& event, bool& cancel) {
  VARIANT_BOOL flag = cancel ? VARIANT_TRUE : VARIANT_FALSE;
  object_.call(L"RunEvent", {event, Variant::referenceTo(flag)});
  cancel = flag != VARIANT_FALSE;
}

}  // namespace kebu::windows
