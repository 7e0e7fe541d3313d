// ADO's roles over the workbench's COM objects beside the same roles over its engine: the same use
// of both must give the same.
#include "tests/windows/ado_scenarios.h"

#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <ostream>
#include <string>

#include "windows/ado/ado_objects.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/windows/class_objects.h"

namespace kebu::tests {

/// For GoogleTest's messages.
void PrintTo(const AdoScenario& scenario, std::ostream* out) {
  *out << scenario.name;
}

namespace {

std::shared_ptr<engine::Database> newDatabase() {
  auto database = engine::Database::createInMemory();
  const Ref<ado::Connection> connection = workbench::newConnection(database, nullptr);
  connection->Open();
  for (const std::string& statement : adoSetUp()) connection->Execute(statement);
  return database;
}

Transcript runOnEngine(const AdoScenario& scenario) {
  workbench::AdoLibrary library;
  const auto database = newDatabase();
  AdoSide side{library, [&] { return workbench::newConnection(database, nullptr); }};
  Transcript transcript;
  scenario.run(side, transcript);
  return transcript;
}

/// The engine's objects as COM has them, registered for this process.
class ComObjects {
 public:
  explicit ComObjects(const workbench::Manners& manners = {}) : manners_(manners) {}

  /// With `meanwhile` each statement executes asynchronously.
  Ref<ado::Connection> connect(const std::function<bool()>& meanwhile) {
    const Ref<ado::Connection> connection = objects.newConnection();
    connection->whileExecuting(meanwhile);
    return connection;
  }

  windows::AdoLibrary objects;

 private:
  workbench::Manners manners_;
  workbench::AdoLibrary objects_;
  std::shared_ptr<engine::Database> database_ = newDatabase();
  workbench::ClassObjects classes_{
      objects_, [this] { return workbench::newConnection(database_, nullptr, manners_); }};
};

Transcript runThroughCom(const AdoScenario& scenario, const std::function<bool()>& meanwhile,
                         const workbench::Manners& manners = {}) {
  ComObjects com(manners);
  AdoSide side{com.objects, [&] { return com.connect(meanwhile); }};
  Transcript transcript;
  scenario.run(side, transcript);
  return transcript;
}

class AdoScenarioTest : public testing::TestWithParam<AdoScenario> {};

TEST_P(AdoScenarioTest, GivesTheSameThroughCom) {
  expectSame(runOnEngine(GetParam()), runThroughCom(GetParam(), {}), GetParam().landmarks);
}

TEST_P(AdoScenarioTest, GivesTheSameWithAsynchronousStatements) {
  expectSame(runOnEngine(GetParam()), runThroughCom(GetParam(), [] { return true; }),
             GetParam().landmarks);
}

TEST_P(AdoScenarioTest, GivesTheSameWhereTheStateHidesErrors) {
  expectSame(runOnEngine(GetParam()),
             runThroughCom(GetParam(), [] { return true; }, {.silentState = true}),
             GetParam().landmarks);
}

std::string nameOfTest(const testing::TestParamInfo<AdoScenario>& info) {
  std::string name = info.param.name;
  for (char& c : name) {
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Ado, AdoScenarioTest, testing::ValuesIn(adoScenarios()), nameOfTest);

/// Some tenths of a second for the engine.
constexpr const char* slowCount =
    "SELECT COUNT(*) AS N FROM T A, T B, T C WHERE C.K < 25 AND A.K + B.K + C.K = 7";

TEST(WhileExecuting, RunsWhileTheConnectionWorks) {
  ComObjects com;
  const Ref<ado::Connection> connection = com.objects.newConnection();
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
    return true;
  });
  const auto count = [](const Ref<ado::Recordset>& rows) { return describe(rows->value("N")); };
  EXPECT_EQ(count(connection->Execute(slowCount)), "int32 12");
  EXPECT_GT(calls, 1) << "during a statement";
  constexpr std::int32_t stillExecuting = 3711;
  EXPECT_EQ(refusal, stillExecuting) << "the statement has the connection for itself";

  calls = 0;
  const Ref<ado::Recordset> rows = com.objects.newRecordset();
  rows->setCursorLocation(ado::CursorLocation::Client);
  rows->Open(slowCount, connection, ado::CursorType::Static, ado::LockType::ReadOnly);
  EXPECT_EQ(count(rows), "int32 12");
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_GT(calls, 1) << "during the opening of a recordset";

  calls = 0;
  connection->whileExecuting({});
  EXPECT_EQ(count(connection->Execute(slowCount)), "int32 12");
  EXPECT_EQ(calls, 0) << "not without a function to call";
}

TEST(WhileExecuting, CancelsTheStatementWhenToldSo) {
  ComObjects com;
  const Ref<ado::Connection> connection = com.objects.newConnection();
  connection->Open();
  int calls = 0;
  connection->whileExecuting([&] { return ++calls < 2; });
  const auto numberOf = [](const std::function<void()>& work) {
    try {
      work();
    } catch (const RuntimeError& error) {
      return error.number();
    }
    return 0;
  };
  constexpr std::int32_t cancelled = 3712;
  // Some minutes for the engine.
  const std::string endless =
      "SELECT COUNT(*) AS N FROM T A, T B, T C, T D WHERE A.K + B.K + C.K + D.K = 7";
  EXPECT_EQ(numberOf([&] { connection->Execute(endless); }), cancelled);
  calls = 0;
  const Ref<ado::Recordset> rows = com.objects.newRecordset();
  rows->setCursorLocation(ado::CursorLocation::Client);
  EXPECT_EQ(numberOf([&] {
              rows->Open(endless, connection, ado::CursorType::Static, ado::LockType::ReadOnly);
            }),
            cancelled);
  EXPECT_FALSE(rows->isOpen());
  // The connection is as before.
  connection->whileExecuting([] { return true; });
  EXPECT_EQ(describe(connection->Execute("SELECT COUNT(*) AS N FROM T WHERE K = 1")->value("N")),
            "int32 1");
}

}  // namespace

}  // namespace kebu::tests
