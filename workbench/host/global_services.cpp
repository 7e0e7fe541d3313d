#include "workbench/host/global_services.h"

#include "workbench/host/environment.h"
#include "workbench/host/error_log.h"
#include "workbench/host/lookups.h"
#include "workbench/host/object_models.h"
#include "workbench/host/sql_decodes.h"

namespace kebu::workbench {

GlobalServices::GlobalServices(const HostSurroundings& surroundings)
    : user_(surroundings.user),
      database_(surroundings.database),
      company_(surroundings.company),
      journal_(surroundings.journal),
      messages_(makeRef<workbench::Messages>(surroundings.user, surroundings.translations)),
      filters_(makeRef<SavedFilters>()) {}

const std::set<std::string, std::less<>>& GlobalServices::serviceNames() {
  static const std::set<std::string, std::less<>> names{"connections", "decodes",  "environment",
                                                        "filters",     "layout",   "log",
                                                        "lookups",     "messages", "script"};
  return names;
}

void GlobalServices::withhold(const std::string& service) {
  withheld_.insert(service);
  // The object that a window holds fails from now on.
  if (service == "filters") filters_->withdraw();
}

std::string GlobalServices::ConnectionString() {
  return database_.connectionString;
}

Value GlobalServices::CompanyCode() {
  return company_;
}

Ref<host::MessageService> GlobalServices::Messages() {
  if (!offers("messages")) return nullptr;
  return messages_;
}

// The ERP shows which record is in use; the workbench has no window for that.
void GlobalServices::RefreshStatus(const Ref<host::NamedObject>& /*activeFrame*/) {}

Ref<host::LogService> GlobalServices::CreateLog() {
  if (!offers("log")) return nullptr;
  return makeRef<ErrorLog>(user_);
}

Ref<host::ConnectionProvider> GlobalServices::CreateConnectionProvider() {
  if (!offers("connections")) return nullptr;
  return makeRef<Connections>(database_.forPlugin);
}

Ref<host::EnvironmentService> GlobalServices::CreateEnvironment() {
  if (!offers("environment")) return nullptr;
  return makeRef<Environment>();
}

Ref<host::SqlDecodeService> GlobalServices::CreateSqlDecode() {
  if (!offers("decodes")) return nullptr;
  return makeRef<SqlDecodes>();
}

Ref<host::LookupService> GlobalServices::CreateLookups() {
  if (!offers("lookups")) return nullptr;
  return makeRef<Lookups>();
}

Ref<host::SavedFilterService> GlobalServices::CreateSavedFilters() {
  if (!offers("filters")) return nullptr;
  return filters_;
}

Ref<host::LayoutModel> GlobalServices::CreateLayoutModel() {
  if (!offers("layout")) return nullptr;
  return makeRef<LayoutModel>(journal_);
}

Ref<host::ScriptModel> GlobalServices::CreateScriptModel() {
  if (!offers("script")) return nullptr;
  return makeRef<ScriptModel>(journal_,
                              [this](const std::string& event) { return runScript(event); });
}

bool GlobalServices::runScript(const std::string& event) {
  const bool refuses = refused_.erase(event) > 0;
  journal_("script: event " + event + (refuses ? ", refused" : ""));
  return refuses;
}

}  // namespace kebu::workbench
