// The adapters on the workbench's COM objects beside the objects themselves:
// whatever is done to both must come to the same. Prints what was looked at;
// the exit code is the number of things that do not hold.
#include <functional>
#include <iostream>
#include <string>

#include "tests/windows/ado_stories.h"
#include "tests/windows/checks.h"
#include "tests/windows/host_checks.h"
#include "tests/windows/unusual_objects.h"
#include "tests/windows/value_checks.h"
#include "windows/ado/ado_objects.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/class_objects.h"

namespace kebu::tests {

namespace {

std::shared_ptr<engine::Database> newDatabase() {
  auto database = engine::Database::createInMemory();
  const Ref<ado::Connection> connection = workbench::newConnection(database, nullptr);
  connection->Open();
  for (const std::string& statement : adoSetUp()) connection->Execute(statement);
  return database;
}

Story toldByEngine(const AdoStory& story) {
  workbench::AdoLibrary library;
  const auto database = newDatabase();
  AdoSide side{library, [&] { return workbench::newConnection(database, nullptr); }};
  Story told;
  story.tell(side, told);
  return told;
}

/// Each statement runs beside the caller when there is something to do meanwhile.
Story toldThroughCom(const AdoStory& story, const std::function<void()>& meanwhile) {
  workbench::AdoLibrary objects;
  const auto database = newDatabase();
  const workbench::ClassObjects classes(
      objects, [&] { return workbench::newConnection(database, nullptr); });
  windows::AdoLibrary library;
  AdoSide side{library, [&] {
                 const Ref<ado::Connection> connection = library.newConnection();
                 connection->whileExecuting(meanwhile);
                 return connection;
               }};
  Story told;
  story.tell(side, told);
  return told;
}

/// Some tenths of a second for the engine.
constexpr const char* slowCount =
    "SELECT COUNT(*) AS N FROM T A, T B, T C WHERE C.K < 25 AND A.K + B.K + C.K = 7";

void checkWaiting() {
  workbench::AdoLibrary objects;
  const auto database = newDatabase();
  const workbench::ClassObjects classes(
      objects, [&] { return workbench::newConnection(database, nullptr); });
  windows::AdoLibrary library;
  const Ref<ado::Connection> connection = library.newConnection();
  connection->Open();
  int calls = 0;
  std::int32_t refusal = 0;
  connection->whileExecuting([&] {
    ++calls;
    try {
      connection->Execute("SELECT 1 AS N");
    } catch (const RuntimeError& error) {
      refusal = error.number();
    }
  });
  const auto count = [](const Ref<ado::Recordset>& rows) { return describe(rows->value("N")); };
  const std::string counted = count(connection->Execute(slowCount));
  expectThat(calls > 1 && counted == "int32 12", "a window is painted while a statement executes");
  constexpr std::int32_t stillExecuting = 3711;
  expectThat(refusal == stillExecuting, "which has the connection for itself");
  calls = 0;
  const Ref<ado::Recordset> rows = library.newRecordset();
  rows->setCursorLocation(ado::CursorLocation::Client);
  rows->Open(slowCount, connection, ado::CursorType::Static, ado::LockType::ReadOnly);
  expectThat(calls > 1 && count(rows) == counted && rows->RecordCount() == 1,
             "and while a recordset opens");
  calls = 0;
  connection->whileExecuting({});
  expectThat(count(connection->Execute(slowCount)) == counted && calls == 0,
             "and no longer when nobody wants it");
}

void run() {
  checkValues();
  for (const AdoStory& story : adoStories()) {
    const Story expected = toldByEngine(story);
    expectSameStory(story.name, expected, toldThroughCom(story, {}), story.milestones);
    expectSameStory(std::string(story.name) + ", each statement beside the caller", expected,
                    toldThroughCom(story, [] {}), story.milestones);
  }
  checkWaiting();
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
