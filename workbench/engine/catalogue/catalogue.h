#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/engine/syntax/ast.h"
#include "workbench/engine/values/types.h"

namespace kebu::engine {

struct TableColumn {
  std::string name;
  SqlType type;
  bool nullable = true;
  std::string defaultText;
};

struct IndexColumn {
  int column = -1;  ///< its index in the table
  bool descending = false;
};

/// A table and where SQLite keeps it.
struct Table {
  /// How the names of the indexes of keys begin, behind the table's name.
  static constexpr const char* keyIndexPrefix = "kb_key";

  std::string name;
  std::vector<TableColumn> columns;
  std::vector<ast::KeyDef> keys;
  int identity = -1;  ///< the identity column's index, or -1; SQLite has it as the row's id
  std::int64_t seed = 1;
  bool temporary = false;
  int owner = 0;         ///< the session with which a temporary table ends
  std::string physical;  ///< its name in SQLite

  static std::shared_ptr<Table> from(const ast::CreateTable& definition);
  /// Ties a temporary table to the session: it ends with the session, and no other session
  /// sees it unless its name begins with ##.
  void makeOwnedBy(int session);
  /// -1 when there is no such column.
  int indexOf(std::string_view column) const;
  std::string schema() const { return temporary ? "tempdb" : "main"; }
  std::string sqliteName() const;
  /// Its CREATE TABLE in T-SQL.
  std::string definition() const;
  /// Its CREATE TABLE for SQLite, without the keys.
  std::string sqliteDefinition() const;
  /// What follows it: a unique index for every key that is not the identity alone.
  std::vector<std::string> sqliteKeys() const;
  /// CREATE INDEX for SQLite, in one or two statements. In a unique index two NULLs are equal.
  std::vector<std::string> sqliteIndex(const std::string& index, bool unique,
                                       const std::vector<IndexColumn>& indexed) const;
  /// Whether a UNIQUE or PRIMARY KEY consists of the columns of these names.
  bool hasKey(const std::vector<std::string>& names) const;
};
using TablePtr = std::shared_ptr<const Table>;

struct Module {
  std::string text;
  ast::Module tree;

  /// Its kind as sys.objects tells it.
  const char* kind() const;
};
using ModulePtr = std::shared_ptr<const Module>;

/// A view of the sys schema: its columns, and SQLite's query behind it.
struct SystemView {
  std::string name;
  std::string query;
  std::vector<TableColumn> columns;
};

/// The tables, views, procedures and functions of a database, by name.
class Catalogue {
 public:
  /// As DB_NAME() gives it.
  static constexpr const char* databaseName = "KEBU";

  /// By the name in a statement of the session; null when there is none.
  TablePtr table(const ast::ObjectName& name, int session) const;
  ModulePtr module(const ast::ObjectName& name) const;
  const SystemView* systemView(const ast::ObjectName& name) const;
  /// The id of a table or module by the text that OBJECT_ID takes, such as "dbo.x" or
  /// "tempdb..##x"; 0 when there is none.
  std::int64_t objectId(std::string_view name, std::string_view kind, int session) const;

  void add(TablePtr table);
  void add(ModulePtr module);
  void remove(const Table& table);
  void remove(const Module& module);
  std::vector<TablePtr> temporariesOf(int session) const;
  /// The tables that are kept in the file.
  std::vector<TablePtr> permanentTables() const;
  /// The table that SQLite knows by this name, or null.
  TablePtr byPhysicalName(std::string_view name) const;

  /// Grows with every change. What was compiled for an older version must be compiled again.
  std::int64_t version() const { return version_; }
  void touch() { ++version_; }

 private:
  std::map<std::string, TablePtr> tables_;
  std::map<std::string, ModulePtr> modules_;
  std::map<std::string, std::int64_t> ids_;
  std::int64_t lastId_ = 0;
  std::int64_t version_ = 0;
};

}  // namespace kebu::engine
