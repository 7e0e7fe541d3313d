#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "host/cls_global.h"
#include "workbench/host/connections.h"
#include "workbench/host/messages.h"
#include "workbench/host/saved_filters.h"
#include "workbench/host/user.h"

namespace kebu::workbench {

/// What the stand-in host needs. The references outlive it.
struct HostSurroundings {
  User& user;
  CompanyDatabase database;
  std::int32_t company = 1;
  Translations translations;
  /// Called with a text for each use that the plug-in makes of the host's object models.
  std::function<void(const std::string&)> journal;
};

/// The host's global services over the embedded company.
class GlobalServices : public host::ClsGlobal {
 public:
  explicit GlobalServices(const HostSurroundings& surroundings);

  /// The names of the services that withhold() knows.
  static const std::set<std::string, std::less<>>& serviceNames();
  /// From now on the host does not offer this service.
  void withhold(const std::string& service);
  /// The next time, the user's script refuses this event.
  void refuseNext(const std::string& event) { refused_.insert(event); }

  std::string ConnectionString() override;
  Value CompanyCode() override;
  std::string ApplicationCode() override { return "KB"; }
  Value SessionId() override { return std::int32_t{1}; }
  Value UserId() override { return std::int32_t{1}; }
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
  bool offers(std::string_view service) const { return !withheld_.contains(service); }
  bool runScript(const std::string& event);

  User& user_;
  CompanyDatabase database_;
  std::int32_t company_;
  std::function<void(const std::string&)> journal_;
  Ref<workbench::Messages> messages_;
  Ref<SavedFilters> filters_;
  std::set<std::string, std::less<>> withheld_;
  std::set<std::string, std::less<>> refused_;
};

}  // namespace kebu::workbench
