#pragma once

#include <string>

#include "common/ref.h"
#include "common/value.h"
#include "host/services.h"

namespace kebu::host {

/// The host's global services object. Services that the host does not offer
/// come back absent.
class ClsGlobal {
 public:
  virtual ~ClsGlobal() = default;

  virtual std::string ConnectionString() = 0;
  virtual Value CompanyCode() = 0;
  /// The code under which the host's application keeps what its users save.
  virtual std::string ApplicationCode() = 0;
  /// The two identifiers of the user's session.
  virtual Value SessionId() = 0;
  virtual Value UserId() = 0;
  virtual Ref<MessageService> Messages() = 0;
  /// Called whenever the window becomes active, with the frame in use.
  virtual void RefreshStatus(const Ref<NamedObject>& activeFrame) = 0;

  virtual Ref<LogService> CreateLog() = 0;
  virtual Ref<ConnectionProvider> CreateConnectionProvider() = 0;
  virtual Ref<EnvironmentService> CreateEnvironment() = 0;
  virtual Ref<SqlDecodeService> CreateSqlDecode() = 0;
  virtual Ref<LookupService> CreateLookups() = 0;
  virtual Ref<SavedFilterService> CreateSavedFilters() = 0;
  virtual Ref<LayoutModel> CreateLayoutModel() = 0;
  virtual Ref<ScriptModel> CreateScriptModel() = 0;
};

}  // namespace kebu::host
