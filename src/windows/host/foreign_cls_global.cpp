#include "windows/host/foreign_services.h"
#include "windows/host/host_objects.h"

namespace kebu::windows {

namespace {

/// The host's global services object. A member that answers nothing makes the
/// service absent; one that is missing is an error, but for the two services
/// that the plug-in can do without.
class ForeignClsGlobal : public host::ClsGlobal, public Foreign {
 public:
  using Role = host::ClsGlobal;
  using Foreign::Foreign;

  std::string ConnectionString() override { return object_.text(L"ConnectionString"); }
  Value CompanyCode() override { return object_.value(L"CompanyCode"); }
  std::string ApplicationCode() override { return object_.text(L"ApplicationCode"); }
  Value SessionId() override { return object_.value(L"SessionId"); }
  Value UserId() override { return object_.value(L"UserId"); }
  Ref<host::MessageService> Messages() override {
    return serviceIfOffered<ForeignMessageService>(L"Messages");
  }
  void RefreshStatus(const Ref<host::NamedObject>& activeFrame) override {
    object_.call(L"RefreshStatus", {unwrap(activeFrame)});
  }

  Ref<host::LogService> CreateLog() override {
    return serviceIfOffered<ForeignLogService>(L"CreateLog");
  }
  Ref<host::ConnectionProvider> CreateConnectionProvider() override {
    return service<ForeignConnectionProvider>(L"CreateConnectionProvider");
  }
  Ref<host::EnvironmentService> CreateEnvironment() override {
    return service<ForeignEnvironmentService>(L"CreateEnvironment");
  }
  Ref<host::SqlDecodeService> CreateSqlDecode() override {
    return service<ForeignSqlDecodeService>(L"CreateSqlDecode");
  }
  Ref<host::LookupService> CreateLookups() override {
    return service<ForeignLookupService>(L"CreateLookups");
  }
  Ref<host::SavedFilterService> CreateSavedFilters() override {
    return service<ForeignSavedFilterService>(L"CreateSavedFilters");
  }
  Ref<host::LayoutModel> CreateLayoutModel() override {
    return service<ForeignLayoutModel>(L"CreateLayoutModel");
  }
  Ref<host::ScriptModel> CreateScriptModel() override {
    return service<ForeignScriptModel>(L"CreateScriptModel");
  }

 private:
  template <class Adapter>
  Ref<typename Adapter::Role> service(std::wstring_view member) const {
    return wrap<Adapter>(object_.get(member).object());
  }
  template <class Adapter>
  Ref<typename Adapter::Role> serviceIfOffered(std::wstring_view member) const {
    return object_.has(member) ? service<Adapter>(member) : nullptr;
  }
};

}  // namespace

Ref<host::ClsGlobal> wrapClsGlobal(IDispatch* object) {
  return wrap<ForeignClsGlobal>(ComPtr<IDispatch>(object));
}

}  // namespace kebu::windows
