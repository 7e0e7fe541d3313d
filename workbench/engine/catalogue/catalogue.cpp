#include "workbench/engine/catalogue/catalogue.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/sqlite.h"
#include "workbench/engine/syntax/lexer.h"

namespace kebu::engine {
namespace {

/// The key of a name. Every session has local temporary tables of its own.
std::string keyOf(const std::string& name, int session) {
  std::string key = toUpperAscii(name);
  if (key.starts_with('#') && !key.starts_with("##")) key += "@" + std::to_string(session);
  return key;
}

template <class Map>
auto lookUp(const Map& map, const std::string& key) -> typename Map::mapped_type {
  const auto found = map.find(key);
  return found == map.end() ? nullptr : found->second;
}

/// Whether a name names the database in the place of its database: without one it does.
bool isIn(std::string_view database, const ast::ObjectName& name) {
  const auto& parts = name.parts;
  if (parts.size() > 3) return false;
  return parts.size() < 3 || parts[0].empty() || equalsIgnoringCase(parts[0], database);
}

/// Whether a name, as far as it names schema and database, is one of this database. Temporary
/// tables may be named with tempdb or without.
bool isHere(const ast::ObjectName& name) {
  const auto& parts = name.parts;
  if (parts.size() > 1) {
    const std::string& schema = parts[parts.size() - 2];
    if (!schema.empty() && !equalsIgnoringCase(schema, "dbo")) return false;
  }
  return isIn(Catalogue::databaseName, name) ||
         (name.last().starts_with('#') && isIn("tempdb", name));
}

std::string storageClass(const SqlType& type) {
  if (type.isText() || type.kind == TypeKind::Guid) return "TEXT COLLATE KB";
  return type.isWide() ? "BLOB" : "INTEGER";
}

const SqlType nameType{TypeKind::NVarChar, 0, 0, 128};

SystemView objects(std::string name, const std::string& condition) {
  return {std::move(name),
          "SELECT name, id AS object_id, kind AS type FROM main.kb_catalog" + condition,
          {{"name", nameType, false, {}},
           {"object_id", SqlType::integer(), false, {}},
           {"type", {TypeKind::Char, 0, 0, 2}, false, {}}}};
}

const std::vector<SystemView>& systemViews() {
  static const std::vector<SystemView> views{
      objects("VIEWS", " WHERE kind = 'V'"), objects("TABLES", " WHERE kind = 'U'"),
      objects("PROCEDURES", " WHERE kind = 'P'"), objects("OBJECTS", "")};
  return views;
}

}  // namespace

std::shared_ptr<Table> Table::from(const ast::CreateTable& definition) {
  auto table = std::make_shared<Table>();
  table->name = definition.name.last();
  table->temporary = table->name.starts_with('#');
  table->physical = table->name;
  table->keys = definition.keys;
  for (const auto& column : definition.columns) {
    if (table->indexOf(column.name) >= 0) {
      throw SqlError(2705, "Column names in each table must be unique. Column name '" +
                               column.name + "' in table '" + table->name +
                               "' is specified more than once.");
    }
    if (column.identity) {
      table->identity = static_cast<int>(table->columns.size());
      table->seed = column.seed;
    }
    table->columns.push_back({column.name, column.type,
                              column.nullable.value_or(true) && !column.identity,
                              column.defaultText});
  }
  for (const auto& key : table->keys) {
    for (const auto& name : key.columns) {
      const int index = table->indexOf(name);
      if (index < 0)
        throw SqlError(1911,
                       "Column name '" + name + "' does not exist in the target table or view.");
      if (key.primary) table->columns[static_cast<std::size_t>(index)].nullable = false;
    }
  }
  return table;
}

void Table::makeOwnedBy(int session) {
  if (!temporary) return;
  owner = session;
  if (!name.starts_with("##")) physical += "@" + std::to_string(session);
}

int Table::indexOf(std::string_view column) const {
  const auto found = std::find_if(
      columns.begin(), columns.end(),
      [&](const TableColumn& candidate) { return equalsIgnoringCase(candidate.name, column); });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

std::string Table::sqliteName() const {
  return schema() + "." + quoted(physical);
}

std::string Table::definition() const {
  const auto bracketed = [](const std::string& identifier) {
    return "[" + replaceAll(identifier, "]", "]]") + "]";
  };
  std::string text = "CREATE TABLE " + bracketed(name) + " (";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const TableColumn& column = columns[i];
    text += (i > 0 ? ", " : "") + bracketed(column.name) + " " + column.type.declaration();
    if (static_cast<int>(i) == identity) text += " IDENTITY(" + std::to_string(seed) + ",1)";
    text += column.nullable ? " NULL" : " NOT NULL";
    if (!column.defaultText.empty()) text += " DEFAULT " + column.defaultText;
  }
  for (const auto& key : keys) {
    text += key.primary ? ", PRIMARY KEY (" : ", UNIQUE (";
    for (std::size_t i = 0; i < key.columns.size(); ++i)
      text += (i > 0 ? ", " : "") + bracketed(key.columns[i]);
    text += ")";
  }
  return text + ")";
}

std::string Table::sqliteDefinition() const {
  std::string text = "CREATE TABLE " + sqliteName() + " (";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const TableColumn& column = columns[i];
    text += (i > 0 ? ", " : "") + quoted(column.name) + " ";
    if (static_cast<int>(i) == identity) {
      text += "INTEGER PRIMARY KEY AUTOINCREMENT";
    } else {
      text += storageClass(column.type) + (column.nullable ? "" : " NOT NULL");
    }
  }
  return text + ")";
}

std::vector<std::string> Table::sqliteKeys() const {
  std::vector<std::string> statements;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    std::vector<IndexColumn> indexed;
    for (const auto& column : keys[i].columns) indexed.push_back({indexOf(column), false});
    if (indexed.size() == 1 && indexed[0].column == identity) continue;
    for (auto& statement : sqliteIndex(keyIndexPrefix + std::to_string(i + 1), true, indexed))
      statements.push_back(std::move(statement));
  }
  return statements;
}

std::vector<std::string> Table::sqliteIndex(const std::string& index, bool unique,
                                            const std::vector<IndexColumn>& indexed) const {
  std::string plain;
  std::string nullsEqual;
  bool anyNullable = false;
  for (const auto& [place, descending] : indexed) {
    const TableColumn& column = columns[static_cast<std::size_t>(place)];
    const std::string name_ = quoted(column.name);
    const std::string item = name_ + (descending ? " DESC" : "");
    const std::string separator = plain.empty() ? "" : ", ";
    plain += separator + item;
    if (column.nullable) {
      const bool isText = column.type.isText() || column.type.kind == TypeKind::Guid;
      nullsEqual += separator + "(" + name_ + " IS NULL), ifnull(" + name_ +
                    (isText ? ", '') COLLATE KB" : ", 0)");
      anyNullable = true;
    } else {
      nullsEqual += separator + item;
    }
  }
  // Indexes of different tables may have the same name, which SQLite does not allow.
  const std::string full = physical + "." + index;
  const auto create = [&](const char* kind, const std::string& fullName, const std::string& list) {
    return std::string(kind) + schema() + "." + quoted(fullName) + " ON " + quoted(physical) +
           " (" + list + ")";
  };
  if (!unique) return {create("CREATE INDEX ", full, plain)};
  if (!anyNullable) return {create("CREATE UNIQUE INDEX ", full, plain)};
  // The second one is for finding rows: SQLite does not use expressions for that.
  return {create("CREATE UNIQUE INDEX ", full, nullsEqual),
          create("CREATE INDEX ", full + ".find", plain)};
}

bool Table::hasKey(const std::vector<std::string>& names) const {
  return std::any_of(keys.begin(), keys.end(), [&](const ast::KeyDef& key) {
    return std::equal(key.columns.begin(), key.columns.end(), names.begin(), names.end(),
                      [](const auto& a, const auto& b) { return equalsIgnoringCase(a, b); });
  });
}

const char* Module::kind() const {
  static constexpr std::array kinds{"V", "P", "IF", "FN"};
  return kinds.at(static_cast<std::size_t>(tree.kind));
}

TablePtr Catalogue::table(const ast::ObjectName& name, int session) const {
  if (!isHere(name)) return nullptr;
  return lookUp(tables_, keyOf(name.last(), session));
}

ModulePtr Catalogue::module(const ast::ObjectName& name) const {
  if (!isHere(name)) return nullptr;
  return lookUp(modules_, keyOf(name.last(), 0));
}

const SystemView* Catalogue::systemView(const ast::ObjectName& name) const {
  const auto& parts = name.parts;
  if (parts.size() < 2 || !equalsIgnoringCase(parts[parts.size() - 2], "sys")) return nullptr;
  if (!isIn(databaseName, name)) return nullptr;
  const auto& views = systemViews();
  const auto found = std::find_if(views.begin(), views.end(), [&](const SystemView& view) {
    return equalsIgnoringCase(view.name, name.last());
  });
  return found == views.end() ? nullptr : &*found;
}

std::int64_t Catalogue::objectId(std::string_view name, std::string_view kind, int session) const {
  std::string last;
  for (const auto& token : tokenize(name)) {
    if (token.kind == TokenKind::Word || token.kind == TokenKind::Name) last = nameOf(token);
  }
  const std::string key = keyOf(last, session);
  const auto found = ids_.find(key);
  if (found == ids_.end()) return 0;
  const std::string wanted = toUpperAscii(trim(kind));
  const ModulePtr module = lookUp(modules_, key);
  const std::string actual = module ? module->kind() : "U";
  return wanted.empty() || wanted == actual ? found->second : 0;
}

void Catalogue::add(TablePtr table) {
  const std::string key = keyOf(table->name, table->owner);
  if (!ids_.contains(key)) ids_.emplace(key, ++lastId_);
  tables_[key] = std::move(table);
  touch();
}

void Catalogue::add(ModulePtr module) {
  const std::string key = keyOf(module->tree.name.last(), 0);
  if (!ids_.contains(key)) ids_.emplace(key, ++lastId_);
  modules_[key] = std::move(module);
  touch();
}

void Catalogue::remove(const Table& table) {
  const std::string key = keyOf(table.name, table.owner);
  ids_.erase(key);
  tables_.erase(key);
  touch();
}

void Catalogue::remove(const Module& module) {
  const std::string key = keyOf(module.tree.name.last(), 0);
  ids_.erase(key);
  modules_.erase(key);
  touch();
}

TablePtr Catalogue::byPhysicalName(std::string_view name) const {
  const auto found = std::find_if(tables_.begin(), tables_.end(), [&](const auto& entry) {
    return equalsIgnoringCase(entry.second->physical, name);
  });
  return found == tables_.end() ? nullptr : found->second;
}

std::vector<TablePtr> Catalogue::permanentTables() const {
  std::vector<TablePtr> found;
  for (const auto& [key, table] : tables_) {
    if (!table->temporary) found.push_back(table);
  }
  return found;
}

std::vector<TablePtr> Catalogue::temporariesOf(int session) const {
  std::vector<TablePtr> result;
  for (const auto& [key, table] : tables_) {
    if (table->temporary && table->owner == session) result.push_back(table);
  }
  return result;
}

}  // namespace kebu::engine
