#include "workbench/company/company.h"

#include "workbench/company/scripts.h"
#include "workbench/engine/script.h"
#include "workbench/engine/session.h"

namespace kebu::workbench {

namespace {

void run(engine::Session& session, std::span<const Script> scripts) {
  for (const Script& script : scripts) engine::runScript(session, script.text);
}

}  // namespace

void createSchema(engine::Session& session) {
  run(session, schemaScripts());
}

void loadDemo(engine::Session& session) {
  run(session, demoScripts());
}

}  // namespace kebu::workbench
