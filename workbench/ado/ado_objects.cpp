#include "workbench/ado/ado_objects.h"

#include <utility>

#include "workbench/ado/ado_command.h"
#include "workbench/ado/ado_connection.h"
#include "workbench/ado/ado_recordset.h"

namespace kebu::engine {

Ref<ado::Connection> newConnection(std::shared_ptr<Database> database,
                                   StatementObserver* observer) {
  return makeRef<AdoConnection>(std::move(database), observer);
}

Ref<ado::Recordset> Library::newRecordset() {
  return makeRef<AdoRecordset>();
}

Ref<ado::Command> Library::newCommand() {
  return makeRef<AdoCommand>();
}

}  // namespace kebu::engine
