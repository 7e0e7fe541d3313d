#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "workbench/acceptance/result_rows.h"
#include "workbench/ado/ado_objects.h"

namespace kebu::workbench {
namespace {

using ado::CursorLocation;
using ado::CursorType;
using ado::LockType;
using ado::UpdateCriteria;

constexpr std::int32_t rowNotFound = -2147217864;
constexpr std::int32_t keyInsufficient = -2147467259;  // also when several rows were changed
constexpr std::int32_t badValue = -2147217887;

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
                           LockType lock = LockType::Optimistic,
                           UpdateCriteria criteria = UpdateCriteria::UpdatedColumns) {
    auto recordset = library.newRecordset();
    recordset->setCursorLocation(CursorLocation::Client);
    recordset->setUpdateCriteria(criteria);
    recordset->Open(source, connection, cursor, lock);
    return recordset;
  }
  Ref<ado::Recordset> openBy(UpdateCriteria criteria, const std::string& source) {
    return open(source, CursorType::Static, LockType::Optimistic, criteria);
  }
  std::string stored(const std::string& query) {
    auto recordset = connection->Execute(query);
    return recordset->EOF_() ? "" : engine::shownRows(recordset->GetRows(-1));
  }

  std::shared_ptr<engine::Database> database = engine::Database::createInMemory();
  Ref<ado::Connection> connection = newConnection(database, nullptr);
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
  rs->setValue("A", "neu");
  EXPECT_EQ(rs->editMode(), ado::EditMode::InProgress);
  EXPECT_EQ(rs->originalValue("A"), Value("a"));
  EXPECT_EQ(stored("SELECT A FROM T WHERE K = 1"), "a\n");
  rs->MoveLast();
  EXPECT_EQ(stored("SELECT A FROM T WHERE K = 1"), "neu\n");
  rs->setValue("P", "3.456");
  rs->CancelUpdate();
  EXPECT_EQ(engine::shown(rs->value("P")), "9.00");
  EXPECT_EQ(errorOf([&] { rs->setValue("X", 1); }), badValue);
  rs->Delete();
  EXPECT_EQ(errorOf([&] { rs->value("A"); }), -2147217885);
  rs->MoveNext();
  EXPECT_TRUE(rs->EOF_());
  EXPECT_EQ(rs->RecordCount(), 3);
  EXPECT_EQ(stored("SELECT COUNT(*) FROM T"), "3\n");
}

// What finds a changed row: the statements' texts are tested beside the observer.
TEST_F(Recordsets, FindAChangedRowByTheirCriteria) {
  connection->Execute(
      "CREATE TABLE N (ID int PRIMARY KEY, A varchar(5), P decimal(9,2), L varchar(max))"
      "INSERT INTO N VALUES (1, 'a', 1, 'x'), (2, 'b', NULL, NULL)");
  // Somebody else changes a column that this recordset does not.
  const auto changeA = [&](UpdateCriteria criteria) {
    auto rs = openBy(criteria, "SELECT * FROM N ORDER BY ID");
    connection->Execute("UPDATE N SET P = ISNULL(P, 0) + 1, L = 'y' WHERE ID = 1");
    rs->setValue("A", "mine");
    return errorOf([&] { rs->Update(); });
  };
  EXPECT_EQ(changeA(UpdateCriteria::Key), 0);
  EXPECT_EQ(changeA(UpdateCriteria::UpdatedColumns), 0);
  EXPECT_EQ(changeA(UpdateCriteria::AllColumns), rowNotFound);
  EXPECT_EQ(changeA(UpdateCriteria::TimeStamp), rowNotFound) << "no timestamp: all columns";
  // Now the same column.
  const auto changeP = [&](UpdateCriteria criteria) {
    auto rs = openBy(criteria, "SELECT ID, P FROM N ORDER BY ID");
    connection->Execute("UPDATE N SET P = P + 1");
    rs->setValue("P", 77);
    return errorOf([&] { rs->Update(); });
  };
  EXPECT_EQ(changeP(UpdateCriteria::UpdatedColumns), rowNotFound);
  EXPECT_EQ(changeP(UpdateCriteria::Key), 0);
  EXPECT_EQ(stored("SELECT P FROM N WHERE ID = 1"), "77.00\n");

  // A long text cannot be compared; a NULL can.
  auto rs = openBy(UpdateCriteria::AllColumns, "SELECT * FROM N WHERE ID = 2");
  rs->setValue("L", "long");
  rs->Update();
  rs->setValue("A", Null{});
  rs->Update();
  rs->setValue("A", "c");
  rs->Update();
  EXPECT_EQ(stored("SELECT * FROM N WHERE ID = 2"), "2|c|NULL|long\n");
}

TEST_F(Recordsets, ChangeSeveralRowsWhereNoKeyTellsThemApart) {
  // T has no key, and two rows are alike.
  auto rs = open("SELECT * FROM T WHERE K = 2");
  rs->setValue("A", "neu");
  EXPECT_EQ(errorOf([&] { rs->Update(); }), keyInsufficient);
  EXPECT_EQ(stored("SELECT A FROM T WHERE K = 2"), "neu\nneu\n") << "the damage is done";
  rs->CancelUpdate();
  EXPECT_EQ(rs->value("A"), Value("b"));

  rs = openBy(UpdateCriteria::AllColumns, "SELECT * FROM T WHERE K = 2");
  EXPECT_EQ(errorOf([&] { rs->Delete(); }), keyInsufficient);
  EXPECT_EQ(stored("SELECT COUNT(*) FROM T"), "2\n");

  rs = openBy(UpdateCriteria::Key, "SELECT * FROM T");
  rs->setValue("A", "x");
  EXPECT_EQ(errorOf([&] { rs->Update(); }), keyInsufficient);
  rs->CancelUpdate();
  // A key of which not all was selected is none.
  connection->Execute(
      "CREATE TABLE N (A int, B int, C int, PRIMARY KEY (A, B)) INSERT INTO N "
      "VALUES (1, 1, 5), (1, 2, 5)");
  rs = open("SELECT A, C FROM N");
  rs->setValue("C", 6);
  EXPECT_EQ(errorOf([&] { rs->Update(); }), keyInsufficient);
}

TEST_F(Recordsets, OnTheServerKnowTheirRowsByTheKeyOnly) {
  auto rs = library.newRecordset();
  EXPECT_EQ(errorOf([&] { rs->setUpdateCriteria(UpdateCriteria::AllColumns); }), 3265);
  rs->Open("SELECT * FROM T", connection, CursorType::Dynamic, LockType::Optimistic);
  rs->setValue("A", "x");
  EXPECT_EQ(errorOf([&] { rs->Update(); }), keyInsufficient);
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

TEST_F(Recordsets, ConvertWhatIsAssignedWithoutALocale) {
  auto rs = open("SELECT * FROM T");
  rs->setValue("P", "1234.555");
  EXPECT_EQ(engine::shown(rs->value("P")), "1234.56");
  rs->setValue("K", "12");
  rs->setValue("D", "2024-01-31");
  rs->setValue("F", true);
  EXPECT_EQ(rs->value("F"), Value(std::int16_t{-1}));
  for (const auto& [field, value] :
       std::vector<std::pair<const char*, Value>>{{"P", "abc"},
                                                  {"P", "1,5"},
                                                  {"P", "1.234,5"},
                                                  {"P", ""},
                                                  {"D", "31/01/2024"},
                                                  {"D", "2024-02-30"},
                                                  {"D", "gennaio"},
                                                  {"K", "1.5"},
                                                  {"F", std::int32_t{40000}},
                                                  {"A", "sechs6"},
                                                  {"P", Decimal(100000000)}}) {
    EXPECT_EQ(errorOf([&, f = field, v = value] { rs->setValue(f, v); }), badValue)
        << field << " " << toDisplay(value);
  }
  EXPECT_EQ(engine::shown(rs->value("P")), "1234.56");
  rs->setValue("A", Null{});
  rs->Update();
  EXPECT_EQ(stored("SELECT * FROM T WHERE K = 12"), "12|NULL|1234.56|2024-01-31|-1\n");
  rs->setValue("F", Null{});
  EXPECT_NE(errorOf([&] { rs->Update(); }), 0);
  EXPECT_EQ(rs->editMode(), ado::EditMode::InProgress);
  rs->CancelUpdate();
  EXPECT_EQ(rs->value("F"), Value(std::int16_t{-1}));
}

TEST_F(Recordsets, LoseInAVarcharWhatTheCodePageLacks) {
  connection->Execute(
      "CREATE TABLE C (ID int PRIMARY KEY, V varchar(20), N nvarchar(20))"
      "INSERT INTO C VALUES (1, 'Łódź €20 中', N'Łódź €20 中')");
  EXPECT_EQ(stored("SELECT V, N FROM C"), "Lódz €20 ?|Łódź €20 中\n");
  auto rs = open("SELECT * FROM C");
  rs->setValue("V", "Ｅｒｐ Ω 😀");
  rs->setValue("N", "Ω 😀");
  rs->Update();
  EXPECT_EQ(rs->value("V"), Value("Erp O ??"));
  EXPECT_EQ(stored("SELECT V, N FROM C"), "Erp O ??|Ω 😀\n");
}

TEST_F(Recordsets, ReadOnlyTheIdentityOfANewRow) {
  connection->Execute(
      "CREATE TABLE I (ID int IDENTITY(5,1) PRIMARY KEY, A varchar(5), "
      "S smallint DEFAULT 4, D datetime DEFAULT GETDATE())");
  auto rs = open("SELECT * FROM I");
  rs->AddNew();
  rs->setValue("A", "neu");
  rs->Update();
  EXPECT_EQ(rs->value("ID"), Value(std::int32_t{5}));
  EXPECT_TRUE(rs->value("S").isNull() && rs->value("D").isNull());
  // A second change finds the row by a value that it never had.
  rs->setValue("S", 7);
  EXPECT_EQ(errorOf([&] { rs->Update(); }), rowNotFound);
  rs->CancelUpdate();
  rs->Requery();
  EXPECT_EQ(rs->value("S"), Value(std::int16_t{4}));
  rs->setValue("S", 7);
  rs->Update();

  auto other = newConnection(database, nullptr, Manners{.foreignIdentity = true});
  other->Open();
  auto misled = library.newRecordset();
  misled->setCursorLocation(CursorLocation::Client);
  misled->Open("SELECT * FROM I", other, CursorType::Static, LockType::Optimistic);
  misled->AddNew();
  misled->setValue("A", "b");
  misled->Update();
  EXPECT_NE(misled->value("ID"), Value(std::int32_t{6}));
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
  EXPECT_TRUE(rs->value("F").isNull()) << "the default is not read back";
  EXPECT_EQ(stored("SELECT K, A FROM T ORDER BY K"), "1|x\n2|b\n2|b\n7|NULL\n");
}

TEST_F(Recordsets, LeaveARowThatNoLongerPassesTheFilter) {
  connection->Execute(
      "CREATE TABLE F (ID int PRIMARY KEY, K int) INSERT INTO F VALUES (1, 2), "
      "(2, 2), (3, 2)");
  for (const bool atOnce : {false, true}) {
    auto own = newConnection(database, nullptr, Manners{.leavesFilterAtOnce = atOnce});
    own->Open();
    auto rs = library.newRecordset();
    rs->setCursorLocation(CursorLocation::Client);
    rs->Open("SELECT * FROM F", own, CursorType::Static, LockType::Optimistic);
    rs->setFilter("K = 2");
    rs->setValue("K", 5);
    rs->Update();
    EXPECT_EQ(rs->value("ID"), Value(std::int32_t{atOnce ? 2 : 1}));
    rs->MoveNext();
    EXPECT_EQ(rs->value("ID"), Value(std::int32_t{atOnce ? 3 : 2}));
    EXPECT_EQ(rs->RecordCount(), 2);
    own->Execute("UPDATE F SET K = 2");
  }
}

TEST_F(Recordsets, FilterAsOneMoves) {
  auto rs = open("SELECT * FROM T");
  rs->setFilter("K = 2 and A = 'B'");
  EXPECT_EQ(rs->RecordCount(), 2);
  EXPECT_EQ(rs->AbsolutePosition(), 1);
  rs->setFilter("P > 1.4 and K <> -1");
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->setFilter("K < 2.5");
  EXPECT_EQ(rs->RecordCount(), 3);
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
  auto rs = open("SELECT * FROM ##W", CursorType::Dynamic, LockType::Optimistic,
                 UpdateCriteria::AllColumns);
  EXPECT_EQ(rs->RecordCount(), 4);
  EXPECT_EQ(rs->value("K"), Value(std::int32_t{3}));
  rs->setValue("F", 1);
  rs->Update();
  EXPECT_EQ(stored("SELECT K FROM ##W WHERE F = 1"), "3\n");
  connection->Execute("DELETE FROM ##W");
  rs->setValue("F", 2);
  EXPECT_EQ(errorOf([&] { rs->Update(); }), rowNotFound);
}

}  // namespace
}  // namespace kebu::workbench
