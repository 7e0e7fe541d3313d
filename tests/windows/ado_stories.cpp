#include "tests/windows/ado_stories.h"

namespace kebu::tests {

namespace {

using ado::CursorLocation;
using ado::CursorType;
using ado::LockType;

/// A recordset and a connection of one side, and the story that is told of them.
class Teller {
 public:
  Teller(AdoSide& side, Story& story) : side_(side), story_(story), connection(side.connect()) {
    connection->Open();
  }

  void open(const std::string& source, CursorType cursor, LockType lock,
            CursorLocation location = CursorLocation::Client) {
    rows = side_.objects.newRecordset();
    rows->setCursorLocation(location);
    tell("open", [&] { rows->Open(source, connection, cursor, lock); });
  }
  void openForEdits(LockType lock = LockType::Optimistic) {
    open("SELECT * FROM T WHERE K <= 4 ORDER BY K", CursorType::Keyset, lock);
  }
  void openForward(const std::string& source) {
    tell("execute", [&] { rows = connection->Execute(source); });
  }

  template <class Deed>
  void tell(const char* what, Deed&& deed) {
    story_.tell(what, deed);
  }
  void tellValue(const char* field) {
    tell(field, [&] { return rows->value(field); });
  }
  void tellPlace() {
    tell("at", [&] { return rows->AbsolutePosition(); });
    tell("begin", [&] { return rows->BOF(); });
    tell("end", [&] { return rows->EOF_(); });
  }
  void set(const char* field, const Value& value) {
    tell("set", [&] { rows->setValue(field, value); });
  }
  void tellEdit() {
    tell("mode", [&] { return rows->editMode(); });
    tell("pending", [&] { return rows->hasPendingBatch(); });
  }
  /// What the database has got by now.
  void tellStored() {
    tell("stored", [&] {
      return connection->Execute("SELECT K, A, P, D, F FROM T WHERE K <= 9 ORDER BY K, A")
          ->GetRows(-1);
    });
  }
  void tellErrors() {
    tell("errors", [&] { return connection->errors(); });
  }

 private:
  AdoSide& side_;
  Story& story_;

 public:
  Ref<ado::Connection> connection;
  Ref<ado::Recordset> rows;
};

void everyKindOfValue(AdoSide& side, Story& story) {
  Teller t(side, story);
  t.open("SELECT * FROM KINDS ORDER BY I", CursorType::Static, LockType::ReadOnly);
  t.tell("fields", [&] { return t.rows->fields(); });
  for (int row = 0; row < 3; ++row) {
    for (const char* field : {"I", "S", "T", "B", "L", "N", "W", "D", "C", "V", "U", "G"}) {
      t.tellValue(field);
    }
    t.tell("next", [&] { t.rows->MoveNext(); });
  }
  t.tell("first", [&] { t.rows->MoveFirst(); });
  t.tell("all", [&] { return t.rows->GetRows(-1); });
}

void forwardOnly(AdoSide& side, Story& story) {
  Teller t(side, story);
  t.openForward("SELECT K, A FROM T ORDER BY K");
  t.tell("count", [&] { return t.rows->RecordCount(); });
  t.tellValue("a");
  t.tell("unknown", [&] { return t.rows->value("NONE"); });
  t.tell("read", [&] {
    std::string keys;
    for (int i = 0; i < 300; ++i) {
      keys += describe(t.rows->value("K")) + " ";
      t.rows->MoveNext();
    }
    return keys;
  });
  t.tellPlace();
  t.tellValue("a");
  t.tell("original", [&] { return t.rows->originalValue("A"); });
  t.tell("unknown", [&] { return t.rows->value("NONE"); });
  t.tell("back", [&] { t.rows->MovePrevious(); });
  t.tell("clone", [&] { return t.rows->Clone()->RecordCount(); });
  t.set("A", "x");
  t.tell("mode", [&] { return t.rows->editMode(); });
  t.tellValue("K");
  t.tell("some", [&] { return t.rows->GetRows(3); });
  t.tellPlace();
  t.tell("many", [&] { return t.rows->GetRows(250); });
  t.tellPlace();
  t.tell("next", [&] { t.rows->MoveNext(); });
  t.tellValue("K");
  t.tell("rest", [&] { return t.rows->GetRows(-1); });
  t.tellPlace();
  t.tell("next", [&] { t.rows->MoveNext(); });
  t.tell("none", [&] { return t.rows->GetRows(1); });
  t.tell("first", [&] { t.rows->MoveFirst(); });
  t.tell("next", [&] { t.rows->MoveNext(); });
  t.tellPlace();
  t.tellValue("K");
  t.tell("filter", [&] { t.rows->setFilter("K >= 599"); });
  t.tell("next", [&] { t.rows->MoveNext(); });
  t.tellValue("K");
  t.tell("next", [&] { t.rows->MoveNext(); });
  t.tellPlace();
  t.tell("close", [&] { t.rows->Close(); });
  t.tell("next", [&] { t.rows->MoveNext(); });
  t.openForward("SELECT K FROM T WHERE 1 = 0");
  t.tellPlace();
}

void movingAbout(AdoSide& side, Story& story) {
  Teller t(side, story);
  t.open("SELECT K, A FROM T ORDER BY K", CursorType::Static, LockType::ReadOnly);
  t.tell("count", [&] { return t.rows->RecordCount(); });
  t.tell("back", [&] { t.rows->MovePrevious(); });
  t.tellPlace();
  t.tell("back", [&] { t.rows->MovePrevious(); });
  t.tellValue("K");
  t.tell("last", [&] { t.rows->MoveLast(); });
  t.tellPlace();
  t.tellValue("K");
  for (const std::int32_t place : {128, 600, 601, 0, -3}) {
    t.tell("go", [&] { t.rows->setAbsolutePosition(place); });
    t.tellPlace();
  }
  t.tell("go", [&] { t.rows->setAbsolutePosition(595); });
  t.tell("block", [&] { return t.rows->GetRows(4); });
  t.tell("block", [&] { return t.rows->GetRows(4); });
  t.tellPlace();
  t.tell("block", [&] { return t.rows->GetRows(4); });
  const Ref<ado::Recordset> clone = t.rows->Clone();
  t.tell("clone", [&] { return clone->AbsolutePosition(); });
  t.tell("clone", [&] { clone->setAbsolutePosition(7); });
  t.tellPlace();
  t.open("SELECT K FROM T WHERE 1 = 0", CursorType::Static, LockType::ReadOnly);
  t.tellPlace();
  t.tell("first", [&] { t.rows->MoveFirst(); });
  t.tell("last", [&] { t.rows->MoveLast(); });
  t.tell("fields", [&] { return t.rows->fields(); });
}

void filters(AdoSide& side, Story& story) {
  Teller t(side, story);
  t.open("SELECT * FROM T ORDER BY K", CursorType::Static, LockType::ReadOnly);
  for (const char* filter : {"K = 2", "K > 3 and K < 7", "A = 'perché'", "A LIKE 'n%' and F <> 4",
                             "P = 1.5", "D >= '2024-03-05'", "A = NULL", "A <> NULL and K < 10",
                             "K = 999", "K =", "NONE = 1", "K = 1 or K = 2", ""}) {
    story.note(filter);
    t.tell("filter", [&] { t.rows->setFilter(filter); });
    t.tell("text", [&] { return t.rows->filter(); });
    t.tell("count", [&] { return t.rows->RecordCount(); });
    t.tellPlace();
    t.tellValue("K");
  }
  t.tell("filter", [&] { t.rows->setFilter("K > 590"); });
  t.tell("requery", [&] { t.rows->Requery(); });
  t.tell("count", [&] { return t.rows->RecordCount(); });
}

void editing(AdoSide& side, Story& story) {
  Teller t(side, story);
  t.openForEdits();
  t.tellEdit();
  t.tell("cancel", [&] { t.rows->CancelUpdate(); });
  t.tell("update", [&] { t.rows->Update(); });
  t.set("A", "nuovo");
  t.set("P", "12,50");
  t.set("D", *Date::make(2026, 1, 2, 3, 4, 5, 670));
  t.tellEdit();
  t.tellValue("A");
  t.tellValue("P");
  t.tell("original", [&] { return t.rows->originalValue("A"); });
  t.tellStored();
  t.tell("update", [&] { t.rows->Update(); });
  t.tellEdit();
  t.tellStored();
  for (const Value& wrong : {Value("testo"), Value("99999999999"), Value(Null{}), Value()}) {
    t.set("F", wrong);
    t.tellValue("F");
  }
  t.set("A", "troppo lungo per il campo");
  t.tell("cancel", [&] { t.rows->CancelUpdate(); });
  t.tellValue("A");
  t.set("NONE", true);
  // Moving on sends what was typed.
  t.set("A", "mosso");
  t.tell("next", [&] { t.rows->MoveNext(); });
  t.tellStored();
  t.set("A", "via");
  t.tell("close", [&] { t.rows->Close(); });
  t.tell("cancel", [&] { t.rows->CancelUpdate(); });
  t.tell("close", [&] { t.rows->Close(); });
  t.tell("update", [&] { t.rows->Update(); });
  t.tell("mode", [&] { return t.rows->editMode(); });
  t.open("SELECT COUNT(*) AS N FROM T", CursorType::Static, LockType::Optimistic);
  t.set("N", std::int32_t{1});
  t.open("SELECT K FROM T", CursorType::Static, LockType::ReadOnly);
  t.set("K", std::int32_t{1});
  t.tell("delete", [&] { t.rows->Delete(); });
  t.tell("add", [&] { t.rows->AddNew(); });
}

void addingAndDeleting(AdoSide& side, Story& story) {
  Teller t(side, story);
  t.openForEdits();
  t.tell("add", [&] { t.rows->AddNew(); });
  t.tellEdit();
  t.tellValue("K");
  t.tell("original", [&] { return t.rows->originalValue("K"); });
  t.set("K", std::int32_t{8});
  t.set("A", "otto");
  t.set("F", std::int16_t{8});
  t.tell("update", [&] { t.rows->Update(); });
  t.tellPlace();
  t.tellStored();
  t.tell("add", [&] { t.rows->AddNew(); });
  t.set("A", "senza chiave");
  t.tell("update", [&] { t.rows->Update(); });
  t.tellErrors();
  t.tellEdit();
  t.tell("cancel", [&] { t.rows->CancelUpdate(); });
  t.tell("count", [&] { return t.rows->RecordCount(); });
  t.tell("delete", [&] { t.rows->Delete(); });
  t.tellEdit();
  t.tellValue("A");
  t.tell("again", [&] { t.rows->Delete(); });
  t.tell("next", [&] { t.rows->MoveNext(); });
  t.tellPlace();
  t.tell("mode at the end", [&] { return t.rows->editMode(); });
  t.tell("update at the end", [&] { t.rows->Update(); });
  t.tellStored();
  // Somebody else has taken the row away.
  t.tell("first", [&] { t.rows->MoveFirst(); });
  t.tell("elsewhere", [&] { t.connection->Execute("DELETE FROM T WHERE K = 1"); });
  t.set("A", "tardi");
  t.tell("update", [&] { t.rows->Update(); });
  t.tellErrors();
  t.tellEdit();
  t.tellStored();
}

void batches(AdoSide& side, Story& story) {
  Teller t(side, story);
  t.openForEdits(LockType::BatchOptimistic);
  t.set("A", "uno");
  t.tellEdit();
  t.tell("update", [&] { t.rows->Update(); });
  t.tellEdit();
  t.tell("add", [&] { t.rows->AddNew(); });
  t.set("K", std::int32_t{9});
  t.tell("update", [&] { t.rows->Update(); });
  t.tell("go", [&] { t.rows->setAbsolutePosition(2); });
  t.tell("delete", [&] { t.rows->Delete(); });
  t.tell("first", [&] { t.rows->MoveFirst(); });
  t.tell("all", [&] { return t.rows->GetRows(-1); });
  const Ref<ado::Recordset> clone = t.rows->Clone();
  t.tell("clone", [&] { return clone->GetRows(-1); });
  t.tell("clone pending", [&] { return clone->hasPendingBatch(); });
  t.tellStored();
  // A filter hides rows, but not from the batch.
  t.tell("filter", [&] { t.rows->setFilter("K = 3"); });
  t.tell("send", [&] { t.rows->UpdateBatch(); });
  t.tellEdit();
  t.tellStored();
  t.tell("filter", [&] { t.rows->setFilter(""); });
  t.set("A", "tre");
  t.tell("update", [&] { t.rows->Update(); });
  t.tell("add", [&] { t.rows->AddNew(); });
  t.tell("cancel", [&] { t.rows->CancelBatch(); });
  t.tellEdit();
  t.tell("count", [&] { return t.rows->RecordCount(); });
  t.tell("first", [&] { t.rows->MoveFirst(); });
  t.tell("all", [&] { return t.rows->GetRows(-1); });
  t.tell("send", [&] { t.rows->UpdateBatch(); });
  t.tellStored();
  // One row of the batch cannot be written: it stays for another try.
  t.tell("first", [&] { t.rows->MoveFirst(); });
  t.set("F", Null{});
  t.tell("update", [&] { t.rows->Update(); });
  t.tell("send", [&] { t.rows->UpdateBatch(); });
  t.tellErrors();
  t.tellEdit();
  t.set("F", std::int16_t{6});
  t.tell("send", [&] { t.rows->UpdateBatch(); });
  t.tellEdit();
  t.tell("requery", [&] { t.rows->Requery(); });
  t.tell("all", [&] { return t.rows->GetRows(-1); });
}

void connections(AdoSide& side, Story& story) {
  Teller t(side, story);
  const Ref<ado::Connection> other = side.connect();
  const auto text = [&] { return other->connectionString(); };
  t.tell("set", [&] { other->setConnectionString("Provider=X;Città=Cantù"); });
  t.tell("string", text);
  t.tell("is open", [&] { return other->isOpen(); });
  t.tell("close", [&] { other->Close(); });
  t.tell("execute", [&] { other->Execute("SELECT 1 AS A"); });
  t.tell("open", [&] { other->Open(); });
  t.tell("open", [&] { other->Open(); });
  t.tell("is open", [&] { return other->isOpen(); });
  t.tellErrors();
  for (const char* statement :
       {"SELECT * FROM NOWHERE", "SELEC 1", "INSERT INTO T (K, A) VALUES (NULL, 'x')",
        "UPDATE T SET A = 'y' WHERE K = 2; INSERT INTO T (K) VALUES (NULL)", "SELECT 1 / 0 AS A",
        "RAISERROR('perché no', 16, 1)"}) {
    story.note(statement);
    t.tell("execute", [&] { t.connection->Execute(statement); });
    t.tellErrors();
  }
  for (const char* statement : {"UPDATE T SET A = 'n' WHERE K = 2", "SELECT A FROM T WHERE K = 2",
                                "INSERT INTO T (K, A) VALUES (NULL, 'x')"}) {
    story.note(statement);
    t.tell("execute without records", [&] { t.connection->ExecuteNoRecords(statement); });
    t.tellErrors();
  }
  t.openForward("SELECT A FROM T WHERE K = 2");
  t.tellValue("A");
  t.tell("close", [&] { t.rows->Close(); });
  t.openForward("UPDATE T SET A = 'z' WHERE K = 2");
  t.tell("is open", [&] { return t.rows->isOpen(); });
  t.tellPlace();
  t.tellValue("A");
  t.tell("fields", [&] { return t.rows->fields(); });
  t.tell("rows", [&] { return t.rows->GetRows(1); });
  t.tell("close", [&] { t.rows->Close(); });
  t.tellErrors();
  t.openForward("UPDATE T SET A = 'w' WHERE K = 2; SELECT A FROM T WHERE K = 2");
  t.tell("is open", [&] { return t.rows->isOpen(); });
  t.tellValue("A");
}

void recordsetsOutOfPlace(AdoSide& side, Story& story) {
  Teller t(side, story);
  t.rows = side.objects.newRecordset();
  t.tell("is open", [&] { return t.rows->isOpen(); });
  t.tellPlace();
  t.tell("count", [&] { return t.rows->RecordCount(); });
  t.tell("next", [&] { t.rows->MoveNext(); });
  t.tell("requery", [&] { t.rows->Requery(); });
  t.tell("clone", [&] { t.rows->Clone(); });
  t.tellValue("A");
  t.set("A", "x");
  t.tell("add", [&] { t.rows->AddNew(); });
  t.tell("send", [&] { t.rows->UpdateBatch(); });
  t.tellEdit();
  t.tell("without a connection",
         [&] { t.rows->Open("SELECT 1 AS A", nullptr, CursorType::Static, LockType::ReadOnly); });
  const Ref<ado::Connection> closed = side.connect();
  t.tell("on a closed connection",
         [&] { t.rows->Open("SELECT 1 AS A", closed, CursorType::Static, LockType::ReadOnly); });
  t.tell("a wrong statement", [&] {
    t.rows->Open("SELECT A FROM NOWHERE", t.connection, CursorType::Static, LockType::ReadOnly);
  });
  t.tellErrors();
  t.tell("open", [&] {
    t.rows->Open("SELECT 1 AS A", t.connection, CursorType::Static, LockType::ReadOnly);
  });
  t.tell("open", [&] {
    t.rows->Open("SELECT 2 AS A", t.connection, CursorType::Static, LockType::ReadOnly);
  });
  t.tell("location", [&] { t.rows->setCursorLocation(CursorLocation::Server); });
  t.tellValue("A");
  t.tell("close", [&] { t.rows->Close(); });
  t.tell("location", [&] { t.rows->setCursorLocation(CursorLocation::Server); });
  t.tell("open", [&] {
    t.rows->Open("SELECT 3 AS B", t.connection, CursorType::ForwardOnly, LockType::ReadOnly);
  });
  t.tell("fields", [&] { return t.rows->fields(); });
  t.tellValue("A");
  t.tellValue("B");
}

void commands(AdoSide& side, Story& story) {
  Teller t(side, story);
  t.tell("procedure", [&] {
    t.connection->Execute(
        "CREATE PROCEDURE ADD_ROW @key int, @text varchar(10) = 'solito', @price decimal(9, 2) = "
        "NULL AS BEGIN INSERT INTO T (K, A, P) VALUES (@key, @text, @price) END");
  });
  const Ref<ado::Command> command = side.objects.newCommand();
  const auto set = [&](const char* name, const Value& value) {
    t.tell(name, [&] { command->setParameter(name, value); });
  };
  set("@key", std::int32_t{5});
  t.tell("execute", [&] { command->Execute(); });
  t.tell("connection", [&] { command->setActiveConnection(t.connection); });
  t.tell("text", [&] { command->setCommandText("NO_SUCH"); });
  set("@key", std::int32_t{5});
  t.tell("text", [&] { command->setCommandText("ADD_ROW"); });
  set("@none", std::int32_t{5});
  set("@key", "testo");
  set("@KEY", std::int32_t{5});
  set("@price", Decimal::scaled(1990, 2));
  t.tell("execute", [&] { command->Execute(); });
  set("@key", Null{});
  t.tell("execute", [&] { command->Execute(); });
  t.tellErrors();
  set("@key", "6");
  set("@text", "l'altro");
  t.tell("execute", [&] { command->Execute(); });
  t.tellStored();
  t.tell("no connection", [&] { command->setActiveConnection(nullptr); });
  t.tell("execute", [&] { command->Execute(); });
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
        "'漢字 🙂', '6F9619FF-8B86-D011-B42D-00C04FC964FF')",
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

const std::vector<AdoStory>& adoStories() {
  static const std::vector<AdoStory> stories{
      {"values of every kind",
       everyKindOfValue,
       {"int16 -32768", "int32 -2147483648", "bool true", "decimal 9223372036854775807",
        "decimal 123456789012345678.0123456789", "date 1899-12-29 18:00:00.003", "漢字 🙂",
        "null"}},
      {"a recordset that only goes forward",
       forwardOnly,
       {"int32 309", "error 3265", "error -2147217884", "error 3251", "error 3219", "250 rows",
        "error 3021", "error 3704"}},
      {"moving about", movingAbout, {"count: 600", "error 3001", "4 rows", "at: -1"}},
      {"filters", filters, {"count: 3", "error 3265", "error 3001", "count: 600"}},
      {"editing rows",
       editing,
       {"decimal 12.50", "date 2026-01-02 03:04:05.670", "error 13", "error 6", "error -2147217887",
        "text \"mosso\"", "error 3219", "error 3251", "mode: 1"}},
      {"adding and deleting rows",
       addingAndDeleting,
       {"mode: 2", "text \"otto\"", "error -2147217900", "error -2147217885", "error -2147217864"}},
      {"batches", batches, {"pending: 1", "pending: 0", "text \"uno\"", "error -2147217900"}},
      {"connections", connections, {"Cantù", "error 3705", "208", "perché no", "text \"w\""}},
      {"recordsets out of place",
       recordsetsOutOfPlace,
       {"error 3704", "error 3709", "error 3705", "208", "int32 3"}},
      {"commands", commands, {"error 3265", "error 13", "decimal 19.90", "l'altro", "error 3709"}},
  };
  return stories;
}

}  // namespace kebu::tests
