#include <gtest/gtest.h>

#include <vector>

#include "workbench/acceptance/result_rows.h"
#include "workbench/ado/ado_objects.h"

namespace kebu::workbench {
namespace {

/// Notes what it hears and fails the next statement when it is told to.
class Recorder : public StatementObserver {
 public:
  void before(const std::string&, bool) override {
    if (!failNext) return;
    failNext = false;
    throw RuntimeError(5555, "made to fail", "test");
  }
  void after(const std::string& text, bool edit, std::int64_t rows,
             const RuntimeError* error) override {
    lines.push_back(text + (edit ? " [edit] " : " ") +
                    (error != nullptr ? error->description() : std::to_string(rows)));
  }

  std::int32_t secondsOf(const std::string&) override { return seconds; }
  void secondConnection(const std::string& text, const std::string& unread) override {
    besideUnread.push_back(text + " beside " + unread);
  }

  bool failNext = false;
  std::int32_t seconds = 0;
  std::vector<std::string> besideUnread;
  std::vector<std::string> lines;
};

class ObservedConnection : public testing::Test {
 protected:
  ObservedConnection() {
    connection->Open();
    connection->Execute(
        "CREATE TABLE T (ID int IDENTITY(1,1) PRIMARY KEY, A varchar(10), P decimal(9,2))");
    connection->Execute(
        "CREATE PROCEDURE SP @a varchar(10), @p decimal(9,2) = 2.5, @d datetime = NULL AS INSERT "
        "INTO T (A, P) VALUES (@a, @p)");
    recorder.lines.clear();
  }

  Recorder recorder;
  Ref<ado::Connection> connection = newConnection(engine::Database::createInMemory(), &recorder);
  AdoLibrary library;
};

TEST_F(ObservedConnection, TellsOfEveryStatementOnce) {
  connection->Execute("INSERT INTO T (A) VALUES ('it''s'), ('b')");
  auto recordset = library.newRecordset();
  recordset->setCursorLocation(ado::CursorLocation::Client);
  recordset->Open("SELECT * FROM T", connection, ado::CursorType::Keyset,
                  ado::LockType::Optimistic);
  recordset->setValue("A", "x'y");
  recordset->setValue("P", "1.5");
  recordset->MoveNext();
  recordset->Delete();
  recordset->AddNew();
  recordset->setValue("A", "neu");
  recordset->Update();
  recordset->Requery();
  EXPECT_THROW(connection->Execute("SELECT X FROM T"), engine::SqlError);
  const std::vector<std::string> expected{
      "INSERT INTO T (A) VALUES ('it''s'), ('b') 2",
      "SELECT * FROM T 2",
      "UPDATE [T] SET [A] = 'x''y', [P] = 1.5 WHERE [ID] = 1 AND [A] = 'it''s' AND "
      "[P] IS NULL [edit] 1",
      "DELETE FROM [T] WHERE [ID] = 2 [edit] 1",
      "INSERT INTO [T] ([A]) VALUES ('neu') [edit] 1",
      "SELECT * FROM T 2",
      "SELECT X FROM T Invalid column name 'X'."};
  EXPECT_EQ(recorder.lines, expected);
  ASSERT_EQ(connection->errors().size(), 1U);
  EXPECT_EQ(connection->errors()[0].nativeError, 207);
  EXPECT_EQ(connection->errors()[0].sqlState, "42S22");
}

TEST_F(ObservedConnection, AStatementMadeToFailHasNoEffect) {
  recorder.failNext = true;
  EXPECT_THROW(connection->Execute("INSERT INTO T (A) VALUES ('a')"), RuntimeError);
  EXPECT_EQ(recorder.lines.back(), "INSERT INTO T (A) VALUES ('a') made to fail");
  EXPECT_EQ(connection->errors().at(0).number, 5555);
  EXPECT_TRUE(connection->Execute("SELECT * FROM T")->EOF_());
  EXPECT_TRUE(connection->errors().empty());

  // A failing Update can be tried again.
  auto recordset = library.newRecordset();
  recordset->Open("SELECT * FROM T", connection, ado::CursorType::Keyset,
                  ado::LockType::Optimistic);
  recordset->AddNew();
  recordset->setValue("A", "b");
  recorder.failNext = true;
  EXPECT_THROW(recordset->Update(), RuntimeError);
  EXPECT_EQ(recordset->editMode(), ado::EditMode::Add);
  recordset->Update();
  EXPECT_EQ(recordset->value("ID"), Value(std::int32_t{1}));
  EXPECT_EQ(recordset->editMode(), ado::EditMode::None);
}

TEST_F(ObservedConnection, ACommandCallsAProcedureByItsDescription) {
  auto command = library.newCommand();
  command->setActiveConnection(connection);
  command->setCommandText("SP");
  command->setParameter("@A", "o'k");
  EXPECT_THROW(command->setParameter("@none", 1), RuntimeError);
  EXPECT_THROW(command->setParameter("@p", "abc"), RuntimeError);
  command->setParameter("@d", Date{2024, 2, 29, 10, 0, 0, 0});
  command->Execute();
  EXPECT_THROW(command->setParameter("@p", "7,25"), RuntimeError);
  command->setParameter("@p", "7.25");
  command->Execute();
  EXPECT_EQ(recorder.lines[0], "EXEC SP @a = 'o''k', @d = '20240229 10:00:00.000' 1");
  EXPECT_EQ(recorder.lines[1], "EXEC SP @a = 'o''k', @p = 7.25, @d = '20240229 10:00:00.000' 1");
  const auto rows = connection->Execute("SELECT A, P FROM T")->GetRows(-1);
  EXPECT_EQ(engine::shown(rows.at(0)[1]), "2.50");
  EXPECT_EQ(engine::shown(rows.at(1)[1]), "7.25");
  command->setActiveConnection(nullptr);
  EXPECT_THROW(command->Execute(), RuntimeError);
}

TEST_F(ObservedConnection, AStatementEndsWithItsTimeLimit) {
  auto command = library.newCommand();
  command->setActiveConnection(connection);
  command->setCommandText("SP");
  command->setParameter("@a", "x");
  const auto isTimeout = [](auto&& action) {
    try {
      action();
    } catch (const RuntimeError& error) {
      return error.number() == -2147217871;
    }
    return false;
  };
  recorder.seconds = ado::usualTimeout + 1;
  EXPECT_TRUE(isTimeout([&] { connection->Execute("SELECT * FROM T"); }));
  EXPECT_EQ(connection->errors().at(0).number, -2147217871);
  EXPECT_TRUE(isTimeout([&] { command->Execute(); }));
  connection->setCommandTimeout(0);
  connection->Execute("SELECT * FROM T");
  EXPECT_TRUE(isTimeout([&] { command->Execute(); })) << "a command has a limit of its own";
  command->setCommandTimeout(40);
  command->Execute();
  recorder.seconds = 41;
  EXPECT_TRUE(isTimeout([&] { command->Execute(); }));
}

TEST_F(ObservedConnection, AStatementBesideUnreadRowsIsToldOf) {
  connection->Execute("INSERT INTO T (A) VALUES ('a'), ('b')");
  auto rows = connection->Execute("SELECT * FROM T");
  connection->Execute("UPDATE T SET A = 'c'");
  ASSERT_EQ(recorder.besideUnread.size(), 1U);
  EXPECT_EQ(recorder.besideUnread[0], "UPDATE T SET A = 'c' beside SELECT * FROM T");
  rows->MoveNext();
  rows->MoveNext();
  connection->Execute("UPDATE T SET A = 'c'");
  rows = connection->Execute("SELECT * FROM T");
  rows->Close();
  connection->Execute("UPDATE T SET A = 'c'");
  rows = connection->Execute("SELECT * FROM T");
  rows->GetRows(-1);
  connection->Execute("UPDATE T SET A = 'c'");
  connection->Execute("SELECT * FROM T");  // nobody keeps its rows
  auto kept = library.newRecordset();
  kept->setCursorLocation(ado::CursorLocation::Client);
  kept->Open("SELECT * FROM T", connection, ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  connection->Execute("UPDATE T SET A = 'c'");
  EXPECT_EQ(recorder.besideUnread.size(), 1U) << recorder.besideUnread.back();
}

TEST_F(ObservedConnection, AnErrorBehindRowsIsLogged) {
  const auto rows = connection->Execute("SELECT 1 AS N SELECT * FROM NOWHERE");
  EXPECT_EQ(rows->RecordCount(), -1);
  EXPECT_NE(recorder.lines.back().find("NOWHERE'"), std::string::npos) << recorder.lines.back();
}

}  // namespace
}  // namespace kebu::workbench
