#include "windows/host/foreign_cls_global.h"

#include "windows/host/foreign_services.h"

namespace kebu::windows {

template <class Adapter>
Ref<typename Adapter::Role> ForeignClsGlobal::service(std::wstring_view member) const {
  return wrap<Adapter>(object_.get(member).object());
}

template <class Adapter>
Ref<typename Adapter::Role> ForeignClsGlobal::serviceIfOffered(std::wstring_view member) const {
  return object_.has(member) ? service<Adapter>(member) : nullptr;
}

std::string ForeignClsGlobal::ConnectionString() {
  return object_.text(L"ConnectionString");
}

Value ForeignClsGlobal::CompanyCode() {
  return object_.value(L"CompanyCode");
}

std::string ForeignClsGlobal::ApplicationCode() {
  return object_.text(L"ApplicationCode");
}

Value ForeignClsGlobal::SessionId() {
  return object_.value(L"SessionId");
}

Value ForeignClsGlobal::UserId() {
  return object_.value(L"UserId");
}

Ref<host::MessageService> ForeignClsGlobal::Messages() {
  return serviceIfOffered<ForeignMessageService>(L"Messages");
}

void ForeignClsGlobal::RefreshStatus(const Ref<host::NamedObject>& activeFrame) {
  object_.call(L"RefreshStatus", {unwrap(activeFrame)});
}

Ref<host::LogService> ForeignClsGlobal::CreateLog() {
  return serviceIfOffered<ForeignLogService>(L"CreateLog");
}

Ref<host::ConnectionProvider> ForeignClsGlobal::CreateConnectionProvider() {
  return service<ForeignConnectionProvider>(L"CreateConnectionProvider");
}

Ref<host::EnvironmentService> ForeignClsGlobal::CreateEnvironment() {
  return service<ForeignEnvironmentService>(L"CreateEnvironment");
}

Ref<host::SqlDecodeService> ForeignClsGlobal::CreateSqlDecode() {
  return service<ForeignSqlDecodeService>(L"CreateSqlDecode");
}

Ref<host::LookupService> ForeignClsGlobal::CreateLookups() {
  return service<ForeignLookupService>(L"CreateLookups");
}

Ref<host::SavedFilterService> ForeignClsGlobal::CreateSavedFilters() {
  return service<ForeignSavedFilterService>(L"CreateSavedFilters");
}

Ref<host::LayoutModel> ForeignClsGlobal::CreateLayoutModel() {
  return service<ForeignLayoutModel>(L"CreateLayoutModel");
}

Ref<host::ScriptModel> ForeignClsGlobal::CreateScriptModel() {
  return service<ForeignScriptModel>(L"CreateScriptModel");
}

}  // namespace kebu::windows
