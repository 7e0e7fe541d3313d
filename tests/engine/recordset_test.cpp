#include <gtest/gtest.h>

#include "tests/engine/result_text.h"
#include "workbench/ado/ado_objects.h"

namespace kebu::workbench {
namespace {

using ado::CursorLocation;
using ado::CursorType;
using ado::LockType;

template <class Action>
std::int32_t errorOf(Action&& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

class Recordsets : public testing::Test {
 protected:
  Recordsets() {
    connection->Open();
    connection->Execute(
        "CREATE TABLE T (K int, A varchar(5) NULL, P decimal(9,2) NULL, D datetime NULL, F "
        "smallint NOT NULL DEFAULT 4)"
        "INSERT INTO T (K, A, P) VALUES (1, 'a', 1.5), (2, 'b', NULL), (2, 'b', NULL), (3, 'C ', "
        "9)");
  }

  Ref<ado::Recordset> open(const std::string& source, CursorType cursor = CursorType::Static,
                           LockType lock = LockType::Optimistic) {
    auto recordset = library.newRecordset();
    recordset->setCursorLocation(CursorLocation::Client);
    recordset->Open(source, connection, cursor, lock);
    return recordset;
  }
  std::string stored(const std::string& query) {
    auto recordset = connection->Execute(query);
    return recordset->EOF_() ? "" : engine::shownRows(recordset->GetRows(-1));
  }

  Ref<ado::Connection> connection = newConnection(engine::Database::createInMemory(), nullptr);
  AdoLibrary library;
};

TEST_F(Recordsets, MoveBetweenTheEnds) {
  auto rs = open("SELECT * FROM T ORDER BY K");
  EXPECT_EQ(rs->RecordCount(), 4);
  EXPECT_EQ(rs->AbsolutePosition(), 1);
  rs->MovePrevious();
  EXPECT_TRUE(rs->BOF());
  EXPECT_FALSE(rs->EOF_());
  EXPECT_EQ(rs->AbsolutePosition(), -1);
  EXPECT_EQ(errorOf([&] { rs->MovePrevious(); }), 3021);
  EXPECT_EQ(errorOf([&] { rs->value("K"); }), 3021);
  rs->MoveLast();
  EXPECT_EQ(rs->value("k"), Value(std::int32_t{3}));
  rs->MoveNext();
  EXPECT_TRUE(rs->EOF_());
  EXPECT_EQ(errorOf([&] { rs->MoveNext(); }), 3021);
  rs->setAbsolutePosition(2);
  EXPECT_EQ(rs->GetRows(2).size(), 2U);
  EXPECT_EQ(rs->AbsolutePosition(), 4);
  EXPECT_EQ(errorOf([&] { rs->value("none"); }), 3265);

  auto empty = open("SELECT * FROM T WHERE 1 = 0");
  EXPECT_TRUE(empty->BOF() && empty->EOF_());
  EXPECT_EQ(errorOf([&] { empty->MoveFirst(); }), 3021);
  EXPECT_EQ(empty->fields().size(), 5U);
}

TEST_F(Recordsets, KnowWhenTheyAreClosedOrReadOnly) {
  auto rs = library.newRecordset();
  EXPECT_EQ(errorOf([&] { rs->MoveNext(); }), 3704);
  EXPECT_EQ(
      errorOf([&] { rs->Open("SELECT 1 AS A", nullptr, CursorType::Static, LockType::ReadOnly); }),
      3709);
  rs->Open("SELECT * FROM T", connection, CursorType::ForwardOnly, LockType::ReadOnly);
  EXPECT_EQ(rs->RecordCount(), -1);
  EXPECT_EQ(errorOf([&] { rs->setValue("A", "x"); }), 3251);
  EXPECT_EQ(errorOf([&] { rs->setCursorLocation(CursorLocation::Client); }), 3705);
  rs->Close();
  EXPECT_FALSE(rs->isOpen());
  EXPECT_FALSE(connection->Execute("UPDATE T SET A = A")->isOpen());
  for (const char* source :
       {"SELECT K, COUNT(*) AS N FROM T GROUP BY K", "SELECT x.K FROM T x, T y",
        "SELECT DISTINCT K FROM T", "SELECT 1 AS K"}) {
    EXPECT_EQ(errorOf([&] { open(source)->setValue("K", 1); }), 3251) << source;
  }
  connection->Close();
  EXPECT_EQ(errorOf([&] { connection->Execute("SELECT 1"); }), 3704);
}

TEST_F(Recordsets, SendAnEditAtOnceAndWhenMovedOff) {
  auto rs = open("SELECT K, A, P, P * 2 AS X FROM T");
  rs->MoveNext();
  rs->setValue("A", "neu");
  EXPECT_EQ(rs->editMode(), ado::EditMode::InProgress);
  EXPECT_EQ(rs->originalValue("A"), Value("b"));
  EXPECT_EQ(stored("SELECT A FROM T WHERE K = 2"), "b\nb\n");
  rs->MoveNext();
  // Of two equal rows without a key, only the very one is written.
  EXPECT_EQ(stored("SELECT A FROM T WHERE K = 2"), "neu\nb\n");
  rs->setValue("P", "3,456");
  rs->CancelUpdate();
  EXPECT_TRUE(rs->value("P").isNull());
  EXPECT_EQ(errorOf([&] { rs->setValue("X", 1); }), -2147217887);
  rs->Delete();
  EXPECT_EQ(errorOf([&] { rs->value("A"); }), -2147217885);
  rs->MoveNext();
  EXPECT_EQ(rs->value("K"), Value(std::int32_t{3}));
  EXPECT_EQ(rs->RecordCount(), 3);
  EXPECT_EQ(stored("SELECT COUNT(*) FROM T"), "3\n");
}

TEST_F(Recordsets, LeaveRowsThatWereReadAsTheyWere) {
  auto edited = open("SELECT A FROM T");
  const auto before = edited->GetRows(1);
  edited->MoveFirst();
  edited->setValue("A", "neu");
  edited->Update();
  EXPECT_EQ(engine::shownRows(before), "a\n");
  auto readOnly = open("SELECT A FROM T", CursorType::Static, LockType::ReadOnly);
  const auto kept = readOnly->GetRows(-1);
  readOnly->Close();
  EXPECT_EQ(engine::shownRows(kept), "neu\nb\nb\nC \n");
}

TEST_F(Recordsets, ConvertWhatIsAssigned) {
  auto rs = open("SELECT * FROM T");
  rs->setValue("P", "1.234,555");
  EXPECT_EQ(engine::shown(rs->value("P")), "1234.56");
  rs->setValue("K", "12");
  rs->setValue("D", "31/01/2024");
  rs->setValue("F", true);
  EXPECT_EQ(rs->value("F"), Value(std::int16_t{-1}));
  EXPECT_EQ(errorOf([&] { rs->setValue("P", "abc"); }), 13);
  EXPECT_EQ(engine::shown(rs->value("P")), "1234.56");
  EXPECT_EQ(errorOf([&] { rs->setValue("F", 40000); }), 6);
  EXPECT_EQ(errorOf([&] { rs->setValue("A", "sechs6"); }), -2147217887);
  rs->setValue("A", Null{});
  rs->Update();
  EXPECT_EQ(stored("SELECT * FROM T WHERE K = 12"), "12|NULL|1234.56|2024-01-31|-1\n");
  rs->setValue("F", Null{});
  EXPECT_NE(errorOf([&] { rs->Update(); }), 0);
  EXPECT_EQ(rs->editMode(), ado::EditMode::InProgress);
  rs->CancelUpdate();
  EXPECT_EQ(rs->value("F"), Value(std::int16_t{-1}));
}

TEST_F(Recordsets, KeepABatchUntilItIsSent) {
  auto rs = open("SELECT * FROM T", CursorType::Static, LockType::BatchOptimistic);
  rs->setValue("A", "x");
  rs->MoveNext();
  EXPECT_TRUE(rs->hasPendingBatch());
  rs->Delete();
  rs->AddNew();
  rs->setValue("K", 7);
  rs->Update();
  EXPECT_EQ(rs->RecordCount(), 4);
  EXPECT_EQ(stored("SELECT COUNT(*), MAX(K), MIN(A) FROM T"), "4|3|a\n");
  rs->CancelBatch();
  EXPECT_FALSE(rs->hasPendingBatch());
  EXPECT_EQ(rs->RecordCount(), 4);
  rs->MoveFirst();
  EXPECT_EQ(rs->value("A"), Value("a"));
  rs->setValue("A", "x");
  rs->Update();
  rs->Delete();
  rs->CancelBatch();
  rs->MoveFirst();
  EXPECT_EQ(rs->value("A"), Value("a"));

  rs->setValue("A", "x");
  rs->MoveLast();
  rs->Delete();
  rs->AddNew();
  rs->setValue("K", 7);
  rs->UpdateBatch();
  EXPECT_FALSE(rs->hasPendingBatch());
  EXPECT_EQ(rs->value("F"), Value(std::int16_t{4}));  // the default was read back
  EXPECT_EQ(stored("SELECT K, A FROM T ORDER BY K"), "1|x\n2|b\n2|b\n7|NULL\n");
}

TEST_F(Recordsets, FilterAsOneMoves) {
  auto rs = open("SELECT * FROM T");
  rs->setFilter("K = 2 and A = 'B'");
  EXPECT_EQ(rs->RecordCount(), 2);
  EXPECT_EQ(rs->AbsolutePosition(), 1);
  rs->setValue("K", 5);
  rs->Update();
  EXPECT_EQ(rs->value("K"), Value(std::int32_t{5}));  // no longer passes, but stays until one moves
  rs->MoveNext();
  EXPECT_EQ(rs->AbsolutePosition(), 1);
  EXPECT_EQ(rs->RecordCount(), 1);
  rs->setFilter("P > 1.4 and K <> -1");
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->setFilter("K < 2.5");
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->setFilter("P = NULL");
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->setFilter("K = 99");
  EXPECT_TRUE(rs->EOF_() && rs->BOF());
  EXPECT_EQ(errorOf([&] { rs->setFilter("K 2"); }), 3001);
  EXPECT_EQ(errorOf([&] { rs->setFilter("NONE = 2"); }), 3265);
  rs->setFilter("");
  EXPECT_EQ(rs->RecordCount(), 4);
}

TEST_F(Recordsets, ClonesShareTheRows) {
  auto rs = open("SELECT * FROM T", CursorType::Static, LockType::BatchOptimistic);
  auto clone = rs->Clone();
  clone->setFilter("K = 3");
  EXPECT_EQ(clone->RecordCount(), 1);
  EXPECT_EQ(rs->AbsolutePosition(), 1);
  clone->setValue("A", "klon");
  clone->Update();
  rs->MoveLast();
  EXPECT_EQ(rs->value("A"), Value("klon"));
  rs->UpdateBatch();
  EXPECT_FALSE(clone->hasPendingBatch());
  EXPECT_EQ(stored("SELECT A FROM T WHERE K = 3"), "klon\n");
  rs->Requery();
  EXPECT_EQ(rs->AbsolutePosition(), 1);
}

TEST_F(Recordsets, EditTemporaryTables) {
  connection->Execute("SELECT * INTO ##W FROM T ORDER BY K DESC");
  auto rs = library.newRecordset();
  rs->Open("SELECT * FROM ##W", connection, CursorType::Dynamic, LockType::Optimistic);
  EXPECT_EQ(rs->RecordCount(), 4);
  EXPECT_EQ(rs->value("K"), Value(std::int32_t{3}));
  rs->setValue("F", 1);
  rs->Update();
  EXPECT_EQ(stored("SELECT K FROM ##W WHERE F = 1"), "3\n");
  connection->Execute("DELETE FROM ##W");
  rs->setValue("F", 2);
  EXPECT_EQ(errorOf([&] { rs->Update(); }), -2147217864);
}

}  // namespace
}  // namespace kebu::workbench
