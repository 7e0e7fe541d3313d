#include "workbench/engine/execution/database.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/engine/execution/function_registry.h"
#include "workbench/engine/syntax/parser.h"

namespace kebu::engine {
namespace {

// Grows when texts sort in another way than before: the indexes of older files are out of order.
constexpr int collationVersion = 1;
constexpr int applicationId = 0x4B454255;  // tells our files from other SQLite files

RuntimeError fileError(const std::string& path, const std::string& what) {
  return {-2147467259, path + ": " + what, SqlError::providerName};
}

/// Nothing when the text cannot be prepared.
Prepared prepared(sqlite3* handle, const std::string& sql) {
  sqlite3_stmt* raw = nullptr;
  sqlite3_prepare_v2(handle, sql.c_str(), -1, &raw, nullptr);
  return Prepared(raw);
}

/// The first row's number; -1 without a row or a statement.
std::int64_t wholeNumber(const Prepared& statement) {
  const bool found = statement && sqlite3_step(statement.get()) == SQLITE_ROW;
  return found ? sqlite3_column_int64(statement.get(), 0) : -1;
}

/// What SQLite names behind "… constraint failed: ": "T.A, T.B", or "index 'T.IX'".
struct Place {
  std::string table;
  std::vector<std::string> columns;
  std::string index;  ///< without the table's name
};
Place placeIn(std::string_view message) {
  message.remove_prefix(std::min(message.rfind(": ") + 2, message.size()));
  Place place;
  const bool isIndex = message.starts_with("index '") && message.ends_with("'");
  if (isIndex) message = message.substr(7, message.size() - 8);
  while (!message.empty()) {
    const std::string_view item = message.substr(0, message.find(", "));
    message.remove_prefix(std::min(item.size() + 2, message.size()));
    const std::size_t point = item.rfind('.');
    place.table = item.substr(0, point);
    if (point == std::string_view::npos) continue;
    if (isIndex) {
      place.index = item.substr(point + 1);
    } else {
      place.columns.emplace_back(item.substr(point + 1));
    }
  }
  return place;
}

/// What SQLite may say of a statement that is right as far as the engine can tell.
struct Translation {
  std::string_view sqlite;
  std::int32_t number;
  const char* text;
};

constexpr const char* tooDeep =
    "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into "
    "smaller queries.";
constexpr const char* tooComplex =
    "The query processor ran out of internal resources and could not produce a query plan. Please "
    "simplify the query.";

constexpr std::array translations{
    Translation{"integer overflow", 8115,
                "Arithmetic overflow error converting expression to data type int."},
    Translation{"Expression tree is too large", 191, tooDeep},
    Translation{"parser stack overflow", 191, tooDeep},
    Translation{"too many terms in compound SELECT", 191, tooDeep},
    Translation{"at most 64 tables in a join", 106,
                "Too many table names in the query. The maximum allowable is 64."},
    Translation{"too many SQL variables", 8623, tooComplex},
    Translation{"query string is too large", 8623, tooComplex},
    Translation{"statement too long", 8623, tooComplex},
    Translation{"too many columns", 1702,
                "CREATE TABLE failed because it has more columns than the allowed maximum."},
    Translation{"string or blob too big", 701, "There is insufficient system memory."},
    Translation{"out of memory", 701, "There is insufficient system memory."},
    Translation{"database is locked", 1222, "Lock request time out period exceeded."},
    Translation{"database table is locked", 1222, "Lock request time out period exceeded."},
    Translation{"attempt to write a readonly database", 3906,
                "Failed to update the database because it is read-only."},
    Translation{"database or disk is full", 1101,
                "Could not allocate a new page for the database: the disk is full."},
    Translation{"database disk image is malformed", 824,
                "The database file is damaged: SQLite cannot read a page of it."},
    Translation{"malformed database schema", 824,
                "The database file is damaged: SQLite cannot read its schema."},
    Translation{"file is not a database", 824, "The database file is damaged: it is no database."},
    Translation{"disk I/O error", 823, "The operating system reported an error of the disk."},
};

SqlError translated(const std::string& message) {
  const auto* const found = std::find_if(
      translations.begin(), translations.end(),
      [&](const Translation& known) { return message.find(known.sqlite) != std::string::npos; });
  if (found != translations.end()) return {found->number, found->text, "HY000"};
  return {8624, "Internal error: the engine made a statement that SQLite refuses: " + message,
          "HY000"};
}

}  // namespace

Handle Database::open(const std::string& path, int flags) {
  sqlite3* raw = nullptr;
  // The database is used by one thread at a time. Without SQLite's mutexes reading is quicker.
  const int code = sqlite3_open_v2(path.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  Handle handle(raw);
  if (code != SQLITE_OK) throw fileError(path, "cannot be opened");
  sqlite3_extended_result_codes(raw, 1);
  // Another program may be writing at the moment.
  constexpr int patience = 10'000;  // milliseconds
  sqlite3_busy_timeout(raw, patience);
  return handle;
}

Database::Database(Handle handle) : handle_(std::move(handle)) {
  registerFunctions(*this);
  run("ATTACH ':memory:' AS tempdb");
  // Every statement commits by itself, and waiting for the disk each time would be slow. A
  // crash of the program does no harm; a crash of the machine may cost a test database.
  run("PRAGMA synchronous = OFF");
  // What SQLite needs for itself, such as for sorting, stays in memory.
  run("PRAGMA temp_store = MEMORY");
}

std::shared_ptr<Database> Database::openFile(const std::string& path) {
  if (!std::filesystem::is_regular_file(path))
    throw fileError(path, "there is no such database file");
  Handle handle = open(path, SQLITE_OPEN_READWRITE);
  const std::int64_t id = wholeNumber(prepared(handle.get(), "PRAGMA application_id"));
  if (id < 0) {
    const bool isOther = sqlite3_errcode(handle.get()) == SQLITE_NOTADB;
    throw fileError(path, isOther ? "is not a database" : sqlite3_errmsg(handle.get()));
  }
  if (id != applicationId) throw fileError(path, "is not a database of the workbench");
  std::shared_ptr<Database> database;
  try {
    database.reset(new Database(std::move(handle)));
    database->load();
    database->checkTables();
  } catch (const RuntimeError& error) {
    throw fileError(path, error.description());
  }
  return database;
}

std::shared_ptr<Database> Database::createFile(const std::string& path) {
  if (std::filesystem::exists(path)) throw fileError(path, "exists already");
  std::shared_ptr<Database> database(
      new Database(open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)));
  database->setUp();
  // SQLite takes some names, such as "" and ":memory:", for databases without a file.
  if (!std::filesystem::exists(path)) throw fileError(path, "cannot be the name of a file");
  return database;
}

std::shared_ptr<Database> Database::createInMemory() {
  std::shared_ptr<Database> database(
      new Database(open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)));
  database->setUp();
  return database;
}

std::shared_ptr<Database> Database::clone() const {
  Handle copy = open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  sqlite3_backup* const backup = sqlite3_backup_init(copy.get(), "main", handle(), "main");
  constexpr int allPages = -1;
  sqlite3_backup_step(backup, allPages);
  if (sqlite3_backup_finish(backup) != SQLITE_OK)
    throw fileError(":memory:", "cannot be copied to");
  std::shared_ptr<Database> database(new Database(std::move(copy)));
  database->load();
  return database;
}

void Database::setUp() {
  run("PRAGMA application_id = " + std::to_string(applicationId));
  run("PRAGMA user_version = " + std::to_string(collationVersion));
  run("CREATE TABLE main.kb_catalog (id INTEGER PRIMARY KEY AUTOINCREMENT, kind TEXT NOT NULL, "
      "name TEXT COLLATE KB NOT NULL UNIQUE, text TEXT NOT NULL)");
}

void Database::load() {
  const Prepared statement =
      prepared(handle(), "SELECT kind, text FROM main.kb_catalog ORDER BY id");
  if (!statement) throw lastError();
  const auto text = [&](int column) {
    const auto* const bytes = sqlite3_column_text(statement.get(), column);
    if (bytes == nullptr) throw SqlError(824, "an entry of its catalogue is damaged");
    return std::string(reinterpret_cast<const char*>(bytes));
  };
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
    if (text(0) == "U") {
      catalogue_.add(Table::from(parseTable(text(1))));
    } else {
      auto module = std::make_shared<Module>();
      module->text = text(1);
      module->tree = parseModule(module->text);
      catalogue_.add(std::move(module));
    }
  }
  if (code != SQLITE_DONE) throw lastError();
  if (wholeNumber(prepared(handle(), "PRAGMA user_version")) == collationVersion) return;
  run("REINDEX KB");
  run("PRAGMA user_version = " + std::to_string(collationVersion));
}

void Database::checkTables() const {
  for (const TablePtr& table : catalogue_.permanentTables()) {
    std::string columns;
    for (const TableColumn& column : table->columns) {
      columns += (columns.empty() ? "t." : ", t.") + quoted(column.name);
    }
    if (!prepared(handle(), "SELECT " + columns + " FROM " + table->sqliteName() + " AS t")) {
      throw SqlError(824, "the table " + table->name + " is not stored as its catalogue says");
    }
  }
}

void Database::run(const std::string& sql) {
  if (sqlite3_exec(handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw lastError();
}

void Database::createTable(std::shared_ptr<Table> table) {
  Transaction transaction(*this);
  run(table->sqliteDefinition());
  for (const auto& key : table->sqliteKeys()) run(key);
  if (table->identity >= 0 && table->seed != 1) {
    run("INSERT INTO " + table->schema() + ".sqlite_sequence VALUES (" +
        textLiteral(table->physical) + ", " + std::to_string(table->seed - 1) + ")");
  }
  if (!table->temporary) {
    run("INSERT INTO main.kb_catalog (kind, name, text) VALUES ('U', " + textLiteral(table->name) +
        ", " + textLiteral(table->definition()) + ")");
  }
  transaction.commit();
  catalogue_.add(std::move(table));
}

void Database::dropTable(const Table& table) {
  Transaction transaction(*this);
  run("DROP TABLE " + table.sqliteName());
  if (!table.temporary) run("DELETE FROM main.kb_catalog WHERE name = " + textLiteral(table.name));
  transaction.commit();
  catalogue_.remove(table);
}

void Database::createModule(const ModulePtr& module) {
  run("INSERT INTO main.kb_catalog (kind, name, text) VALUES ('" + std::string(module->kind()) +
      "', " + textLiteral(module->tree.name.last()) + ", " + textLiteral(module->text) +
      ") ON CONFLICT (name) DO UPDATE SET text = excluded.text");
  catalogue_.add(module);
}

void Database::dropModule(const Module& module) {
  run("DELETE FROM main.kb_catalog WHERE name = " + textLiteral(module.tree.name.last()));
  catalogue_.remove(module);
}

std::optional<std::int64_t> Database::currentIdentity(const Table& table) {
  if (table.identity < 0) return std::nullopt;
  // IDENT_CURRENT may be evaluated for every row of a statement: the query stays prepared.
  Prepared& asked = identities_[table.schema()];
  if (!asked) {
    asked = prepared(handle(),
                     "SELECT seq FROM " + table.schema() + ".sqlite_sequence WHERE name = ?1");
  }
  if (!asked) return table.seed;  // no table with an identity has been made yet
  sqlite3_bind_text(asked.get(), 1, table.physical.c_str(), -1, SQLITE_TRANSIENT);
  const std::int64_t last = wholeNumber(asked);
  sqlite3_reset(asked.get());
  return std::max(last, table.seed);
}

void Database::skipIdentity(const Table& table) {
  const std::string name = textLiteral(table.physical);
  const std::string sequence = table.schema() + ".sqlite_sequence";
  run("UPDATE " + sequence + " SET seq = seq + 1 WHERE name = " + name);
  if (sqlite3_changes(handle()) == 0) {  // it is the table's first
    run("INSERT INTO " + sequence + " VALUES (" + name + ", " + std::to_string(table.seed) + ")");
  }
}

std::vector<Database::UniqueIndex> Database::uniqueIndexes(const Table& table) const {
  const Prepared statement =
      prepared(handle(), "SELECT name, sql FROM " + table.schema() +
                             ".sqlite_master WHERE type = 'index' AND tbl_name = " +
                             textLiteral(table.physical) + " AND sql LIKE 'CREATE UNIQUE %'");
  std::vector<UniqueIndex> indexes;
  while (statement && sqlite3_step(statement.get()) == SQLITE_ROW) {
    const auto text = [&](int column) {
      return std::string(
          reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column)));
    };
    indexes.push_back({text(0), text(1)});
  }
  return indexes;
}

void Database::withKeysAtTheEnd(const Table& table, const std::function<void()>& change) {
  Transaction transaction(*this);
  const auto indexes = uniqueIndexes(table);
  for (const auto& index : indexes) run("DROP INDEX " + table.schema() + "." + quoted(index.name));
  change();
  for (const auto& index : indexes) {
    constexpr std::string_view start = "CREATE UNIQUE INDEX ";
    run(std::string(start) + table.schema() + "." + index.sql.substr(start.size()));
  }
  transaction.commit();
}

std::string Database::nameOf(const std::string& physical) const {
  const TablePtr table = catalogue_.byPhysicalName(physical);
  return table ? table->name : physical;
}

/// A violated key is a constraint or a unique index, which SQLite does not tell apart.
SqlError Database::duplicateKey(const std::string& physical,
                                const std::vector<std::string>& columns, const std::string& index) {
  const TablePtr table = catalogue_.byPhysicalName(physical);
  const std::string name = nameOf(physical);
  std::string violated = index;
  if (table && !columns.empty() && !table->hasKey(columns)) {
    for (const auto& candidate : uniqueIndexes(*table)) {
      const bool hasAll = std::all_of(columns.begin(), columns.end(), [&](const auto& column) {
        return candidate.sql.find(quoted(column)) != std::string::npos;
      });
      if (hasAll) violated = candidate.name.substr(physical.size() + 1);
    }
  }
  if (violated.empty() || violated.starts_with(Table::keyIndexPrefix)) {
    return {2627,
            "Violation of UNIQUE or PRIMARY KEY constraint. Cannot insert duplicate key in object "
            "'dbo." +
                name + "'.",
            "23000"};
  }
  return {2601,
          "Cannot insert duplicate key row in object 'dbo." + name + "' with unique index '" +
              violated + "'.",
          "23000"};
}

SqlError Database::lastError() {
  if (raised_) {
    SqlError error = std::move(*raised_);
    raised_.reset();
    return error;
  }
  const std::string message = sqlite3_errmsg(handle());
  const Place place = placeIn(message);
  switch (sqlite3_extended_errcode(handle())) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      if (place.table.starts_with("kb_scratch_")) {
        return {8672,
                "The MERGE statement attempted to UPDATE or DELETE the same row more than once."};
      }
      return duplicateKey(place.table, place.columns, place.index);
    case SQLITE_CONSTRAINT_NOTNULL:
      return {515,
              "Cannot insert the value NULL into column '" +
                  (place.columns.empty() ? std::string() : place.columns.front()) + "', table '" +
                  nameOf(place.table) + "'; column does not allow nulls.",
              "23000"};
    default:
      break;
  }
  return translated(message);
}

// The outermost one asks for the right to write at once: two programs that both read first and
// then want to write would wait for each other.
Transaction::Transaction(Database& database)
    : database_(database), isOuter_(sqlite3_get_autocommit(database.handle()) != 0) {
  database_.run(isOuter_ ? "BEGIN IMMEDIATE" : "SAVEPOINT kb");
}

Transaction::~Transaction() {
  if (!open_) return;
  sqlite3_exec(database_.handle(), isOuter_ ? "ROLLBACK" : "ROLLBACK TO kb; RELEASE kb", nullptr,
               nullptr, nullptr);
}

void Transaction::commit() {
  database_.run(isOuter_ ? "COMMIT" : "RELEASE kb");
  open_ = false;
}

}  // namespace kebu::engine
