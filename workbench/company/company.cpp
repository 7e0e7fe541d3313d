#include "workbench/company/company.h"

#include <string>

#include "workbench/company/scripts.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/script.h"
#include "workbench/engine/execution/session.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::workbench {

namespace {

void run(engine::Session& session, std::span<const Script> scripts) {
  for (const Script& script : scripts) {
    try {
      engine::runScript(session, script.text);
    } catch (const engine::SqlError& error) {
      throw engine::SqlError(error.nativeError(),
                             std::string(script.name) + ": " + error.description(),
                             error.sqlState());
    }
  }
}

}  // namespace

void createSchema(engine::Session& session) {
  run(session, schemaScripts());
}

void loadDemo(engine::Session& session) {
  run(session, demoScripts());
}

std::shared_ptr<engine::Database> demoCompany() {
  auto database = engine::Database::createInMemory();
  engine::Session session(database);
  createSchema(session);
  loadDemo(session);
  return database;
}

}  // namespace kebu::workbench
