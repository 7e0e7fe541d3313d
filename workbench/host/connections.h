#pragma once

#include <memory>
#include <utility>

#include "host/services.h"
#include "workbench/engine/ado_objects.h"
#include "workbench/engine/database.h"
#include "workbench/engine/statement_observer.h"

namespace kebu::workbench {

/// Hands out connections to the embedded company, each of which is observed.
class Connections : public host::ConnectionProvider {
 public:
  Connections(std::shared_ptr<engine::Database> database, engine::StatementObserver* observer)
      : database_(std::move(database)), observer_(observer) {}

  Ref<ado::Connection> NewConnection() override {
    return engine::newConnection(database_, observer_);
  }

 private:
  std::shared_ptr<engine::Database> database_;
  engine::StatementObserver* observer_;
};

}  // namespace kebu::workbench
