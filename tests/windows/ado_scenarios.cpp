#include "tests/windows/ado_scenarios.h"

namespace kebu::tests {

namespace {

using ado::CursorLocation;
using ado::CursorType;
using ado::LockType;

/// A connection and a recordset of one side, whose use is recorded.
class Session {
 public:
  Session(AdoSide& side, Transcript& transcript)
      : side_(side), transcript_(transcript), connection(side.connect()) {
    connection->Open();
  }

  void open(const std::string& source, CursorType cursor, LockType lock,
            CursorLocation location = CursorLocation::Client) {
    rows = side_.objects.newRecordset();
    rows->setCursorLocation(location);
    record("open", [&] { rows->Open(source, connection, cursor, lock); });
  }
  void openForEdits(LockType lock = LockType::Optimistic) {
    open("SELECT * FROM T WHERE K <= 4 ORDER BY K", CursorType::Keyset, lock);
  }
  void openForward(const std::string& source) {
    record("execute", [&] { rows = connection->Execute(source); });
  }

  template <class Action>
  void record(const char* what, Action&& action) {
    transcript_.record(what, action);
  }
  void recordValue(const char* field) {
    record(field, [&] { return rows->value(field); });
  }
  void recordPosition() {
    record("at", [&] { return rows->AbsolutePosition(); });
    record("begin", [&] { return rows->BOF(); });
    record("end", [&] { return rows->EOF_(); });
  }
  void set(const char* field, const Value& value) {
    record("set", [&] { rows->setValue(field, value); });
  }
  void recordEditState() {
    record("mode", [&] { return rows->editMode(); });
    record("pending", [&] { return rows->hasPendingBatch(); });
  }
  /// The rows of the database now.
  void recordStoredRows() {
    record("stored", [&] {
      return connection->Execute("SELECT K, A, P, D, F FROM T WHERE K <= 9 ORDER BY K, A")
          ->GetRows(-1);
    });
  }
  void recordErrors() {
    record("errors", [&] { return connection->errors(); });
  }

 private:
  AdoSide& side_;
  Transcript& transcript_;

 public:
  Ref<ado::Connection> connection;
  Ref<ado::Recordset> rows;
};

void everyKindOfValue(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  session.open("SELECT * FROM KINDS ORDER BY I", CursorType::Static, LockType::ReadOnly);
  session.record("fields", [&] { return session.rows->fields(); });
  for (int row = 0; row < 3; ++row) {
    for (const char* field : {"I", "S", "T", "B", "L", "N", "W", "D", "C", "V", "U", "G"}) {
      session.recordValue(field);
    }
    session.record("next", [&] { session.rows->MoveNext(); });
  }
  session.record("first", [&] { session.rows->MoveFirst(); });
  session.record("all", [&] { return session.rows->GetRows(-1); });
}

void forwardOnly(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  session.openForward("SELECT K, A FROM T ORDER BY K");
  session.record("count", [&] { return session.rows->RecordCount(); });
  session.recordValue("a");
  session.record("unknown", [&] { return session.rows->value("NONE"); });
  session.record("read", [&] {
    std::string keys;
    for (int i = 0; i < 300; ++i) {
      keys += describe(session.rows->value("K")) + " ";
      session.rows->MoveNext();
    }
    return keys;
  });
  session.recordPosition();
  session.recordValue("a");
  session.record("original", [&] { return session.rows->originalValue("A"); });
  session.record("unknown", [&] { return session.rows->value("NONE"); });
  session.record("back", [&] { session.rows->MovePrevious(); });
  session.record("clone", [&] { return session.rows->Clone()->RecordCount(); });
  session.set("A", "x");
  session.record("mode", [&] { return session.rows->editMode(); });
  session.recordValue("K");
  session.record("some", [&] { return session.rows->GetRows(3); });
  session.recordPosition();
  session.record("a field", [&] { return session.rows->GetRows(2, "a"); });
  session.recordPosition();
  session.record("many", [&] { return session.rows->GetRows(250); });
  session.recordPosition();
  session.record("next", [&] { session.rows->MoveNext(); });
  session.recordValue("K");
  session.record("rest", [&] { return session.rows->GetRows(-1); });
  session.recordPosition();
  session.record("next", [&] { session.rows->MoveNext(); });
  session.record("no field", [&] { return session.rows->GetRows(1, "NONE"); });
  session.record("none", [&] { return session.rows->GetRows(1); });
  session.record("first", [&] { session.rows->MoveFirst(); });
  session.record("next", [&] { session.rows->MoveNext(); });
  session.recordPosition();
  session.recordValue("K");
  session.record("filter", [&] { session.rows->setFilter("K >= 599"); });
  session.record("next", [&] { session.rows->MoveNext(); });
  session.recordValue("K");
  session.record("next", [&] { session.rows->MoveNext(); });
  session.recordPosition();
  session.record("close", [&] { session.rows->Close(); });
  session.record("next", [&] { session.rows->MoveNext(); });
  session.openForward("SELECT K FROM T WHERE 1 = 0");
  session.recordPosition();
}

void movingAbout(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  session.open("SELECT K, A FROM T ORDER BY K", CursorType::Static, LockType::ReadOnly);
  session.record("count", [&] { return session.rows->RecordCount(); });
  session.record("back", [&] { session.rows->MovePrevious(); });
  session.recordPosition();
  session.record("back", [&] { session.rows->MovePrevious(); });
  session.recordValue("K");
  session.record("last", [&] { session.rows->MoveLast(); });
  session.recordPosition();
  session.recordValue("K");
  for (const std::int32_t place : {128, 600, 601, 0, -3}) {
    session.record("go", [&] { session.rows->setAbsolutePosition(place); });
    session.recordPosition();
  }
  session.record("go", [&] { session.rows->setAbsolutePosition(595); });
  session.record("block", [&] { return session.rows->GetRows(2, "A"); });
  session.record("block", [&] { return session.rows->GetRows(2, "NONE"); });
  session.record("block", [&] { return session.rows->GetRows(4); });
  session.recordPosition();
  session.record("block", [&] { return session.rows->GetRows(4); });
  const Ref<ado::Recordset> clone = session.rows->Clone();
  session.record("clone", [&] { return clone->AbsolutePosition(); });
  session.record("clone", [&] { clone->setAbsolutePosition(7); });
  session.recordPosition();
  session.open("SELECT K FROM T WHERE 1 = 0", CursorType::Static, LockType::ReadOnly);
  session.recordPosition();
  session.record("first", [&] { session.rows->MoveFirst(); });
  session.record("last", [&] { session.rows->MoveLast(); });
  session.record("fields", [&] { return session.rows->fields(); });
}

void filters(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  session.open("SELECT * FROM T ORDER BY K", CursorType::Static, LockType::ReadOnly);
  for (const char* filter : {"K = 2", "K > 3 and K < 7", "A = 'perché'", "A LIKE 'n%' and F <> 4",
                             "P = 1.5", "D >= '2024-03-05'", "A = NULL", "A <> NULL and K < 10",
                             "K = 999", "K =", "NONE = 1", "K = 1 or K = 2", ""}) {
    transcript.note(filter);
    session.record("filter", [&] { session.rows->setFilter(filter); });
    session.record("text", [&] { return session.rows->filter(); });
    session.record("count", [&] { return session.rows->RecordCount(); });
    session.recordPosition();
    session.recordValue("K");
  }
  session.record("filter", [&] { session.rows->setFilter("K > 590"); });
  session.record("requery", [&] { session.rows->Requery(); });
  session.record("count", [&] { return session.rows->RecordCount(); });
}

void editing(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  session.openForEdits();
  session.recordEditState();
  session.record("update", [&] { session.rows->Update(); });
  session.set("A", "nuovo");
  session.set("P", "12,50");
  session.set("P", "12.50");
  session.set("D", *Date::make(2026, 1, 2, 3, 4, 5, 670));
  session.recordEditState();
  session.recordValue("A");
  session.recordValue("P");
  session.record("original", [&] { return session.rows->originalValue("A"); });
  session.recordStoredRows();
  session.record("update", [&] { session.rows->Update(); });
  session.recordEditState();
  session.recordStoredRows();
  for (const Value& wrong : {Value("testo"), Value("99999999999"), Value(Null{}), Value()}) {
    session.set("F", wrong);
    session.recordValue("F");
  }
  session.set("A", "troppo lungo per il campo");
  session.record("cancel", [&] { session.rows->CancelUpdate(); });
  session.recordValue("A");
  session.set("NONE", true);
  // Moving to another row stores the edit.
  session.set("A", "mosso");
  session.record("next", [&] { session.rows->MoveNext(); });
  session.recordStoredRows();
  session.set("A", "via");
  session.record("close", [&] { session.rows->Close(); });
  session.record("cancel", [&] { session.rows->CancelUpdate(); });
  session.record("close", [&] { session.rows->Close(); });
  session.record("update", [&] { session.rows->Update(); });
  session.record("mode", [&] { return session.rows->editMode(); });
  session.open("SELECT COUNT(*) AS N FROM T", CursorType::Static, LockType::Optimistic);
  session.set("N", std::int32_t{1});
  session.open("SELECT K FROM T", CursorType::Static, LockType::ReadOnly);
  session.set("K", std::int32_t{1});
  session.record("delete", [&] { session.rows->Delete(); });
  session.record("add", [&] { session.rows->AddNew(); });
}

void addingAndDeleting(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  session.openForEdits();
  session.record("add", [&] { session.rows->AddNew(); });
  session.recordEditState();
  session.recordValue("K");
  session.record("original", [&] { return session.rows->originalValue("K"); });
  session.set("K", std::int32_t{8});
  session.set("A", "otto");
  session.set("F", std::int16_t{8});
  session.record("update", [&] { session.rows->Update(); });
  session.recordPosition();
  session.recordStoredRows();
  session.record("add", [&] { session.rows->AddNew(); });
  session.set("A", "senza chiave");
  session.record("update", [&] { session.rows->Update(); });
  session.recordErrors();
  session.recordEditState();
  session.record("cancel", [&] { session.rows->CancelUpdate(); });
  session.record("count", [&] { return session.rows->RecordCount(); });
  session.record("delete", [&] { session.rows->Delete(); });
  session.recordEditState();
  session.recordValue("A");
  session.record("again", [&] { session.rows->Delete(); });
  session.record("next", [&] { session.rows->MoveNext(); });
  session.recordPosition();
  session.record("mode at the end", [&] { return session.rows->editMode(); });
  session.record("update at the end", [&] { session.rows->Update(); });
  session.recordStoredRows();
  // Another connection has deleted the row.
  session.record("first", [&] { session.rows->MoveFirst(); });
  session.record("elsewhere", [&] { session.connection->Execute("DELETE FROM T WHERE K = 1"); });
  session.set("A", "tardi");
  session.record("update", [&] { session.rows->Update(); });
  session.recordErrors();
  session.recordEditState();
  session.recordStoredRows();
}

void batches(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  session.openForEdits(LockType::BatchOptimistic);
  session.set("A", "uno");
  session.recordEditState();
  session.record("update", [&] { session.rows->Update(); });
  session.recordEditState();
  session.record("add", [&] { session.rows->AddNew(); });
  session.set("K", std::int32_t{9});
  session.record("update", [&] { session.rows->Update(); });
  session.record("go", [&] { session.rows->setAbsolutePosition(2); });
  session.record("delete", [&] { session.rows->Delete(); });
  session.record("first", [&] { session.rows->MoveFirst(); });
  session.record("all", [&] { return session.rows->GetRows(-1); });
  const Ref<ado::Recordset> clone = session.rows->Clone();
  session.record("clone", [&] { return clone->GetRows(-1); });
  session.record("clone pending", [&] { return clone->hasPendingBatch(); });
  session.recordStoredRows();
  // A filter hides rows from reading, not from the batch.
  session.record("filter", [&] { session.rows->setFilter("K = 3"); });
  session.record("send", [&] { session.rows->UpdateBatch(); });
  session.recordEditState();
  session.recordStoredRows();
  session.record("filter", [&] { session.rows->setFilter(""); });
  session.set("A", "tre");
  session.record("update", [&] { session.rows->Update(); });
  session.record("add", [&] { session.rows->AddNew(); });
  session.record("cancel", [&] { session.rows->CancelBatch(); });
  session.recordEditState();
  session.record("count", [&] { return session.rows->RecordCount(); });
  session.record("first", [&] { session.rows->MoveFirst(); });
  session.record("all", [&] { return session.rows->GetRows(-1); });
  session.record("send", [&] { session.rows->UpdateBatch(); });
  session.recordStoredRows();
  // One row of the batch cannot be written; it stays pending.
  session.record("first", [&] { session.rows->MoveFirst(); });
  session.set("F", Null{});
  session.record("update", [&] { session.rows->Update(); });
  session.record("send", [&] { session.rows->UpdateBatch(); });
  session.recordErrors();
  session.recordEditState();
  session.set("F", std::int16_t{6});
  session.record("send", [&] { session.rows->UpdateBatch(); });
  session.recordEditState();
  session.record("requery", [&] { session.rows->Requery(); });
  session.record("all", [&] { return session.rows->GetRows(-1); });
}

void connections(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  const Ref<ado::Connection> other = side.connect();
  const auto text = [&] { return other->connectionString(); };
  session.record("set", [&] { other->setConnectionString("Provider=X;Città=Cantù"); });
  session.record("string", text);
  session.record("is open", [&] { return other->isOpen(); });
  session.record("close", [&] { other->Close(); });
  session.record("execute", [&] { other->Execute("SELECT 1 AS A"); });
  session.record("open", [&] { other->Open(); });
  session.record("open", [&] { other->Open(); });
  session.record("is open", [&] { return other->isOpen(); });
  session.recordErrors();
  for (const char* statement :
       {"SELECT * FROM NOWHERE", "SELEC 1", "INSERT INTO T (K, A) VALUES (NULL, 'x')",
        "UPDATE T SET A = 'y' WHERE K = 2; INSERT INTO T (K) VALUES (NULL)", "SELECT 1 / 0 AS A",
        "RAISERROR('perché no', 16, 1)"}) {
    transcript.note(statement);
    session.record("execute", [&] { session.connection->Execute(statement); });
    session.recordErrors();
  }
  for (const char* statement : {"UPDATE T SET A = 'n' WHERE K = 2", "SELECT A FROM T WHERE K = 2",
                                "INSERT INTO T (K, A) VALUES (NULL, 'x')"}) {
    transcript.note(statement);
    session.record("execute without records",
                   [&] { session.connection->ExecuteNoRecords(statement); });
    session.recordErrors();
  }
  session.openForward("SELECT A FROM T WHERE K = 2");
  session.recordValue("A");
  session.record("close", [&] { session.rows->Close(); });
  session.openForward("UPDATE T SET A = 'z' WHERE K = 2");
  session.record("is open", [&] { return session.rows->isOpen(); });
  session.recordPosition();
  session.recordValue("A");
  session.record("fields", [&] { return session.rows->fields(); });
  session.record("rows", [&] { return session.rows->GetRows(1); });
  session.record("close", [&] { session.rows->Close(); });
  session.recordErrors();
  session.openForward("UPDATE T SET A = 'w' WHERE K = 2; SELECT A FROM T WHERE K = 2");
  session.record("is open", [&] { return session.rows->isOpen(); });
  session.recordValue("A");
}

void recordsetsOutOfPlace(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  session.rows = side.objects.newRecordset();
  session.record("is open", [&] { return session.rows->isOpen(); });
  session.recordPosition();
  session.record("count", [&] { return session.rows->RecordCount(); });
  session.record("next", [&] { session.rows->MoveNext(); });
  session.record("requery", [&] { session.rows->Requery(); });
  session.record("clone", [&] { session.rows->Clone(); });
  session.recordValue("A");
  session.set("A", "x");
  session.record("add", [&] { session.rows->AddNew(); });
  session.record("send", [&] { session.rows->UpdateBatch(); });
  session.recordEditState();
  session.record("without a connection", [&] {
    session.rows->Open("SELECT 1 AS A", nullptr, CursorType::Static, LockType::ReadOnly);
  });
  const Ref<ado::Connection> closed = side.connect();
  session.record("on a closed connection", [&] {
    session.rows->Open("SELECT 1 AS A", closed, CursorType::Static, LockType::ReadOnly);
  });
  session.record("a wrong statement", [&] {
    session.rows->Open("SELECT A FROM NOWHERE", session.connection, CursorType::Static,
                       LockType::ReadOnly);
  });
  session.recordErrors();
  session.record("open", [&] {
    session.rows->Open("SELECT 1 AS A", session.connection, CursorType::Static, LockType::ReadOnly);
  });
  session.record("open", [&] {
    session.rows->Open("SELECT 2 AS A", session.connection, CursorType::Static, LockType::ReadOnly);
  });
  session.record("location", [&] { session.rows->setCursorLocation(CursorLocation::Server); });
  session.recordValue("A");
  session.record("close", [&] { session.rows->Close(); });
  session.record("location", [&] { session.rows->setCursorLocation(CursorLocation::Server); });
  session.record("open", [&] {
    session.rows->Open("SELECT 3 AS B", session.connection, CursorType::ForwardOnly,
                       LockType::ReadOnly);
  });
  session.record("fields", [&] { return session.rows->fields(); });
  session.recordValue("A");
  session.recordValue("B");
}

void commands(AdoSide& side, Transcript& transcript) {
  Session session(side, transcript);
  session.record("procedure", [&] {
    session.connection->Execute(
        "CREATE PROCEDURE ADD_ROW @key int, @text varchar(10) = 'solito', @price decimal(9, 2) = "
        "NULL AS BEGIN INSERT INTO T (K, A, P) VALUES (@key, @text, @price) END");
  });
  const Ref<ado::Command> command = side.objects.newCommand();
  const auto set = [&](const char* name, const Value& value) {
    session.record(name, [&] { command->setParameter(name, value); });
  };
  set("@key", std::int32_t{5});
  session.record("execute", [&] { command->Execute(); });
  session.record("connection", [&] { command->setActiveConnection(session.connection); });
  session.record("text", [&] { command->setCommandText("NO_SUCH"); });
  set("@key", std::int32_t{5});
  session.record("text", [&] { command->setCommandText("ADD_ROW"); });
  set("@none", std::int32_t{5});
  set("@key", "testo");
  set("@KEY", std::int32_t{5});
  set("@price", Decimal::scaled(1990, 2));
  session.record("execute", [&] { command->Execute(); });
  set("@key", Null{});
  session.record("execute", [&] { command->Execute(); });
  session.recordErrors();
  set("@key", "6");
  set("@text", "l'altro");
  session.record("execute", [&] { command->Execute(); });
  session.recordStoredRows();
  session.record("no connection", [&] { command->setActiveConnection(nullptr); });
  session.record("execute", [&] { command->Execute(); });
}

}  // namespace

const std::vector<std::string>& adoSetUp() {
  static const std::vector<std::string> statements = [] {
    std::vector<std::string> all{
        "CREATE TABLE T (K int NOT NULL, A varchar(12) NULL, P decimal(9, 2) NULL, D datetime "
        "NULL, F smallint NOT NULL DEFAULT 4)",
        "INSERT INTO T (K, A, P, D) VALUES (1, 'perché', 1.5, '2024-03-05T13:30:15.250'), "
        "(2, NULL, -19.90, NULL), (3, 'n€', 0, '1899-12-29T06:00:00'), (4, '', NULL, "
        "'1753-01-01')",
        "CREATE TABLE KINDS (I int, S smallint, T tinyint, B bit, L bigint, N decimal(9, 2), W "
        "decimal(28, 10), D datetime, C char(6), V varchar(20), U nvarchar(max), G "
        "uniqueidentifier)",
        "INSERT INTO KINDS VALUES (-2147483648, -32768, 0, 1, 9223372036854775807, -0.05, "
        "123456789012345678.0123456789, '1899-12-29T18:00:00.003', 'ab', 'l''é', "
        "N'漢字 🙂', '6F9619FF-8B86-D011-B42D-00C04FC964FF')",
        "INSERT INTO KINDS VALUES (0, 0, 255, 0, -1, 9999999.99, -0.0000000001, "
        "'1899-12-30', '', '', '', NULL)",
        "INSERT INTO KINDS (I) VALUES (2147483647)"};
    std::string more = "INSERT INTO T (K, A) VALUES ";
    for (int key = 10; key <= 605; ++key) {
      more += (key > 10 ? ", (" : "(") + std::to_string(key) + ", 'n" + std::to_string(key) + "')";
    }
    all.push_back(more);
    return all;
  }();
  return statements;
}

const std::vector<AdoScenario>& adoScenarios() {
  static const std::vector<AdoScenario> scenarios{
      {"values of every kind",
       everyKindOfValue,
       {"int16 -32768", "int32 -2147483648", "bool true", "decimal 9223372036854775807",
        "decimal 123456789012345678.0123456789", "date 1899-12-29 18:00:00.003", "漢字 🙂",
        "null"}},
      {"a recordset that only goes forward",
       forwardOnly,
       {"int32 311", "error 3265", "error -2147217884", "error 3251", "error 3219", "250 rows",
        "error 3021", "error 3704"}},
      {"moving about", movingAbout, {"count: 600", "error 3001", "4 rows", "at: -1"}},
      {"filters", filters, {"count: 3", "error 3265", "error 3001", "count: 600"}},
      {"editing rows",
       editing,
       {"decimal 12.50", "date 2026-01-02 03:04:05.670", "error -2147217887", "text \"mosso\"",
        "error 3219", "error 3251", "mode: 1"}},
      {"adding and deleting rows",
       addingAndDeleting,
       {"mode: 2", "text \"otto\"", "error -2147217900", "error -2147217885", "error -2147217864"}},
      {"batches", batches, {"pending: 1", "pending: 0", "text \"uno\"", "error -2147217900"}},
      {"connections", connections, {"Cantù", "error 3705", "208", "perché no", "text \"w\""}},
      {"recordsets out of place",
       recordsetsOutOfPlace,
       {"error 3704", "error 3709", "error 3705", "208", "int32 3"}},
      {"commands",
       commands,
       {"error 3265", "error -2147217887", "decimal 19.90", "l'altro", "error 3709"}},
  };
  return scenarios;
}

}  // namespace kebu::tests
