#pragma once

#include <memory>

#include "ado/library.h"
#include "workbench/ado/statement_observer.h"
#include "workbench/engine/execution/database.h"

namespace kebu::engine {

/// A connection to the database, still to be opened. The observer may be null;
/// otherwise it must outlive the connection.
Ref<ado::Connection> newConnection(std::shared_ptr<Database> database, StatementObserver* observer);

/// Makes recordsets and commands for the connections of newConnection.
class Library : public ado::Library {
 public:
  Ref<ado::Recordset> newRecordset() override;
  Ref<ado::Command> newCommand() override;
};

}  // namespace kebu::engine
