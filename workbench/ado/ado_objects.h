#pragma once

#include <memory>

#include "ado/library.h"
#include "workbench/ado/manners.h"
#include "workbench/ado/statement_observer.h"
#include "workbench/engine/execution/database.h"

namespace kebu::workbench {

/// A connection to the database, still to be opened. The observer may be null;
/// otherwise it must outlive the connection.
Ref<ado::Connection> newConnection(std::shared_ptr<engine::Database> database,
                                   StatementObserver* observer, const Manners& manners = {});

/// Makes recordsets and commands for the connections of newConnection.
class AdoLibrary : public ado::Library {
 public:
  Ref<ado::Recordset> newRecordset() override;
  Ref<ado::Command> newCommand() override;
};

}  // namespace kebu::workbench
