#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "host/services.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/ado/statement_observer.h"
#include "workbench/engine/execution/database.h"

namespace kebu::workbench {

using ConnectionFactory = std::function<Ref<ado::Connection>()>;

/// How the company's database is reached. New connections are closed.
struct CompanyDatabase {
  std::string connectionString;
  ConnectionFactory forPlugin;
  /// For the ERP itself: its statements are not observed.
  ConnectionFactory forHost;
};

/// The embedded company. `observer` sees what the plug-in runs; it may be null.
inline CompanyDatabase embeddedCompany(const std::shared_ptr<engine::Database>& database,
                                       StatementObserver* observer, const Manners& manners = {}) {
  return {"Provider=SQLOLEDB;Data Source=workbench;Initial Catalog=ERP",
          [=] { return newConnection(database, observer, manners); },
          [database] { return newConnection(database, nullptr); }};
}

/// The host's service that creates connections for the plug-in.
class Connections : public host::ConnectionProvider {
 public:
  explicit Connections(ConnectionFactory factory) : factory_(std::move(factory)) {}

  Ref<ado::Connection> NewConnection() override { return factory_(); }

 private:
  ConnectionFactory factory_;
};

}  // namespace kebu::workbench
