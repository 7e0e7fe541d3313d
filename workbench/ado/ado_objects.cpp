#include "workbench/ado/ado_objects.h"

#include <utility>

#include "workbench/ado/ado_command.h"
#include "workbench/ado/ado_connection.h"
#include "workbench/ado/ado_recordset.h"

namespace kebu::workbench {

Ref<ado::Connection> newConnection(std::shared_ptr<engine::Database> database,
                                   StatementObserver* observer, const Manners& manners) {
  return makeRef<AdoConnection>(std::move(database), observer, manners);
}

Ref<ado::Recordset> AdoLibrary::newRecordset() {
  return makeRef<AdoRecordset>();
}

Ref<ado::Command> AdoLibrary::newCommand() {
  return makeRef<AdoCommand>();
}

}  // namespace kebu::workbench
