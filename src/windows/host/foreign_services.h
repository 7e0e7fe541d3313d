#pragma once

#include <string>
#include <vector>

#include "host/cinterface.h"
#include "host/services.h"
#include "windows/support/identity.h"

// The services behind the host's global object. Each member is called under
// its name in host/services.h.
namespace kebu::windows {

class ForeignMessageService : public host::MessageService, public Foreign {
 public:
  using Role = host::MessageService;
  using Foreign::Foreign;

  std::string Translate(const std::string& text) override;
  std::int32_t MsgBox(const Value& prompt, std::int32_t buttons, const Value& title,
                      const Value& context) override;
  std::int32_t MsgBoxFromId(std::int32_t id, std::int32_t buttons, const Value& title,
                            const Value& context) override;
};

class ForeignLogService : public host::LogService, public Foreign {
 public:
  using Role = host::LogService;
  using Foreign::Foreign;

  void SetError(std::int32_t number, const std::string& description,
                const std::string& source) override;
  void SetConnectionErrors(const ado::ErrorSource& connection) override;
  std::int16_t ShowError(const std::string& application, const std::string& caption,
                         const std::string& procedure, std::int32_t style) override;
};

class ForeignConnectionProvider : public host::ConnectionProvider, public Foreign {
 public:
  using Role = host::ConnectionProvider;
  using Foreign::Foreign;

  Ref<ado::Connection> NewConnection() override;
};

/// A service that is initialised with the host interface, in the role that it has.
template <class Service>
class ForeignService : public Service, public Foreign {
 public:
  using Role = Service;
  using Foreign::Foreign;

  void Initialize(const Ref<host::Cinterface>& host) override {
    object_.call(L"Initialize", {unwrap(host)});
  }
};

class ForeignEnvironmentService : public ForeignService<host::EnvironmentService> {
 public:
  using ForeignService::ForeignService;

  std::string GetPath(std::int32_t kind, const std::string& argument) override;
};

class ForeignSqlDecodeService : public ForeignService<host::SqlDecodeService> {
 public:
  using ForeignService::ForeignService;

  std::string DocumentType(const std::string& company, const std::string& code) override;
  std::string Customer(const std::string& company, const std::string& code) override;
  std::string Code(const std::string& table, const std::string& company,
                   const std::vector<std::string>& keys) override;
};

class ForeignLookupService : public ForeignService<host::LookupService> {
 public:
  using ForeignService::ForeignService;

  host::LookupDefinition DocumentTypes(const std::string& company) override;
  host::LookupDefinition Customers(const std::string& company) override;
  host::LookupDefinition CustomerNames(const std::string& company) override;
  host::LookupDefinition Suppliers(const std::string& company) override;
  host::LookupDefinition Configurator(const std::string& company) override;
  host::LookupDefinition Codes(const std::string& table, const std::string& company,
                               const std::vector<std::string>& upperKeys) override;
};

class ForeignSavedFilterService : public ForeignService<host::SavedFilterService> {
 public:
  using ForeignService::ForeignService;

  Value Load(const std::string& key, const std::string& name) override;
  void Save(const std::string& key, const std::string& name, const std::string& text,
            bool isDefault) override;
};

class ForeignLayoutModel : public ForeignService<host::LayoutModel> {
 public:
  using ForeignService::ForeignService;

  Ref<host::NamedObject> Register(const std::string& name, const Ref<host::NamedObject>& object,
                                  std::int32_t kind, const std::string& description) override;
};

class ForeignScriptModel : public ForeignService<host::ScriptModel> {
 public:
  using ForeignService::ForeignService;

  Ref<host::NamedObject> Register(const std::string& name, const Ref<host::NamedObject>& object,
                                  std::int32_t kind, const std::string& description) override;
  void RunEvent(const std::string& event, bool& cancel) override;
};

}  // namespace kebu::windows
