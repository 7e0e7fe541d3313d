#pragma once

#include <string>
#include <string_view>

#include "host/cls_global.h"
#include "windows/support/identity.h"

namespace kebu::windows {

/// The host's global services object. A member that answers nothing makes the
/// service absent; one that is missing is an error, but for the two services
/// that the plug-in can do without.
class ForeignClsGlobal : public host::ClsGlobal, public Foreign {
 public:
  using Role = host::ClsGlobal;
  using Foreign::Foreign;

  std::string ConnectionString() override;
  Value CompanyCode() override;
  std::string ApplicationCode() override;
  Value SessionId() override;
  Value UserId() override;
  Ref<host::MessageService> Messages() override;
  void RefreshStatus(const Ref<host::NamedObject>& activeFrame) override;

  Ref<host::LogService> CreateLog() override;
  Ref<host::ConnectionProvider> CreateConnectionProvider() override;
  Ref<host::EnvironmentService> CreateEnvironment() override;
  Ref<host::SqlDecodeService> CreateSqlDecode() override;
  Ref<host::LookupService> CreateLookups() override;
  Ref<host::SavedFilterService> CreateSavedFilters() override;
  Ref<host::LayoutModel> CreateLayoutModel() override;
  Ref<host::ScriptModel> CreateScriptModel() override;

 private:
  template <class Adapter>
  Ref<typename Adapter::Role> service(std::wstring_view member) const;
  template <class Adapter>
  Ref<typename Adapter::Role> serviceIfOffered(std::wstring_view member) const;
};

}  // namespace kebu::windows
