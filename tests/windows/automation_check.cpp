// The adapters on the workbench's COM objects beside the objects themselves:
// whatever is done to both must come to the same. Prints what was looked at;
// the exit code is the number of things that do not hold.
#include <iostream>

#include "tests/windows/ado_stories.h"
#include "tests/windows/checks.h"
#include "tests/windows/host_checks.h"
#include "tests/windows/unusual_objects.h"
#include "tests/windows/value_checks.h"
#include "windows/ado/ado_objects.h"
#include "workbench/engine/ado_objects.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/class_objects.h"

namespace kebu::tests {

namespace {

std::shared_ptr<engine::Database> newDatabase() {
  auto database = engine::Database::createInMemory();
  const Ref<ado::Connection> connection = engine::newConnection(database, nullptr);
  connection->Open();
  for (const std::string& statement : adoSetUp()) connection->Execute(statement);
  return database;
}

Story toldByEngine(const AdoStory& story) {
  engine::Library library;
  const auto database = newDatabase();
  AdoSide side{library, [&] { return engine::newConnection(database, nullptr); }};
  Story told;
  story.tell(side, told);
  return told;
}

Story toldThroughCom(const AdoStory& story) {
  engine::Library objects;
  const auto database = newDatabase();
  const workbench::ClassObjects classes(objects,
                                        [&] { return engine::newConnection(database, nullptr); });
  windows::AdoLibrary library;
  AdoSide side{library, [&] { return library.newConnection(); }};
  Story told;
  story.tell(side, told);
  return told;
}

void run() {
  checkValues();
  for (const AdoStory& story : adoStories()) {
    expectSameStory(story.name, toldByEngine(story), toldThroughCom(story), story.milestones);
  }
  checkAdoManners();
  checkHostObjects();
  checkUnusualHosts();
}

}  // namespace

}  // namespace kebu::tests

int main() {
  const kebu::workbench::Apartment apartment;
  return kebu::tests::carryOut(kebu::tests::run);
}
