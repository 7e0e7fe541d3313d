#include "workbench/engine/row_writer.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/ado_error.h"
#include "workbench/engine/cast.h"
#include "workbench/engine/field_value.h"

namespace kebu::engine {
namespace {

constexpr const char* thisRow = " WHERE $ROWID = ?";

ast::Literal rowId(const Row& row) {
  return {SqlType::integer(TypeKind::BigInt), Decimal(row.id)};
}

void appendName(std::string& text, const std::string& name) {
  text += '[';
  if (name.find(']') == std::string::npos) {
    text += name;
  } else {
    text += replaceAll(name, "]", "]]");
  }
  text += ']';
}

std::size_t positionOf(const std::string& column, const std::vector<std::string>& columns) {
  const auto found = std::find_if(columns.begin(), columns.end(), [&](const std::string& other) {
    return equalsIgnoringCase(other, column);
  });
  return static_cast<std::size_t>(found - columns.begin());
}

}  // namespace

/// A statement in both of its forms, written piece by piece; the readable one only when it is
/// wanted.
class RowWriter::Statement {
 public:
  Statement(std::string_view start, const std::string& table, std::size_t valueCount, bool readable)
      : readable_(readable) {
    constexpr std::size_t plenty = 1000;  // still a small block, which is had at once
    values.reserve(valueCount);
    command.reserve(plenty);
    if (readable_) text.reserve(plenty);
    add(start);
    addName(table);
  }
  Statement& add(std::string_view piece) {
    command += piece;
    if (readable_) text += piece;
    return *this;
  }
  Statement& addName(const std::string& name) {
    appendName(command, name);
    if (readable_) appendName(text, name);
    return *this;
  }
  void addValue(const SqlType& type, const Value& value) {
    values.push_back({type, castTo(value, type)});
    command += '?';
    if (readable_) text += sqlText(value);
  }
  /// The row is found by its id; one reads its key.
  void addPlace(const RowWriter& writer, const Row& row) {
    command += thisRow;
    values.push_back(rowId(row));
    if (readable_) text += writer.readableKey(row);
  }

  std::string text;     ///< with values, as one reads it
  std::string command;  ///< with parameters, as it is run
  std::vector<ast::Literal> values;

 private:
  bool readable_;
};

void RowWriter::send(Row& row) const {
  if (row.pending == Row::Pending::Nothing) return;
  Statement statement = row.pending == Row::Pending::Insert   ? insert(row)
                        : row.pending == Row::Pending::Update ? update(row)
                                                              : remove(row);
  connection_.edit(statement.text, statement.command, statement.values);
  if (row.pending == Row::Pending::Insert) row.id = connection_.session().lastRowId();
  switch (row.pending) {
    case Row::Pending::Insert:
      readBack(row);
      break;
    case Row::Pending::Update:
      keepAsStored(row, statement);
      break;
    default:
      row.gone = true;
  }
  row.settle();
}

RowWriter::Statement RowWriter::begin(const char* start, std::size_t valueCount) const {
  return {start, rows_.table, valueCount, connection_.isObserved()};
}

RowWriter::Statement RowWriter::insert(const Row& row) const {
  Statement statement = begin("INSERT INTO ", row.before.size());
  if (row.before.empty()) return std::move(statement.add(" DEFAULT VALUES"));
  const char* separator = " (";
  for (const auto& [field, unset] : row.before) {
    statement.add(separator).addName(rows_.columns[field]);
    separator = ", ";
  }
  separator = ") VALUES (";
  for (const auto& [field, unset] : row.before) {
    statement.add(separator).addValue(rows_.types[field], row.values[field]);
    separator = ", ";
  }
  return std::move(statement.add(")"));
}

RowWriter::Statement RowWriter::update(const Row& row) const {
  Statement statement = begin("UPDATE ", row.before.size() + 1);
  const char* separator = " SET ";
  for (const auto& [field, old] : row.before) {
    statement.add(separator).addName(rows_.columns[field]).add(" = ");
    statement.addValue(rows_.types[field], row.values[field]);
    separator = ", ";
  }
  statement.addPlace(*this, row);
  return statement;
}

RowWriter::Statement RowWriter::remove(const Row& row) const {
  Statement statement = begin("DELETE FROM ", 1);
  statement.addPlace(*this, row);
  return statement;
}

/// The fields of the primary key, ascending; without one, or when not all of it was read, all
/// that come from the table.
std::set<std::size_t> RowWriter::keyFields() const {
  const Session& session = connection_.session();
  const TablePtr table = session.database().catalogue().table({{rows_.table}, {}}, session.id());
  std::set<std::size_t> fields;
  for (const auto& candidate : table ? table->keys : std::vector<ast::KeyDef>()) {
    if (!candidate.primary) continue;
    for (const auto& column : candidate.columns) fields.insert(positionOf(column, rows_.columns));
  }
  if (!fields.empty() && *std::prev(fields.end()) < rows_.columns.size()) return fields;
  fields.clear();
  for (std::size_t field = 0; field < rows_.columns.size(); ++field) {
    if (!rows_.columns[field].empty()) fields.insert(field);
  }
  return fields;
}

/// The row as ADO names it.
std::string RowWriter::readableKey(const Row& row) const {
  std::string text;
  for (const std::size_t field : keyFields()) {
    text += text.empty() ? " WHERE " : " AND ";
    appendName(text, rows_.columns[field]);
    const Value& value = row.stored(field);
    text += value.isNull() ? " IS NULL" : " = " + sqlText(value);
  }
  return text;
}

/// An update leaves nothing to be learnt from the database.
void RowWriter::keepAsStored(Row& row, Statement& update) {
  auto sent = update.values.begin();
  for (const auto& [field, old] : row.before) {
    Value& value = row.values[field] = std::move(sent->value);
    if (sent->type.kind == TypeKind::Guid && !value.isNull()) value = "{" + toText(value) + "}";
    ++sent;
  }
}

/// What the database made of a new row: identity, defaults, rounding.
void RowWriter::readBack(Row& row) const {
  std::string select;
  for (const auto& column : rows_.columns) {
    select += select.empty() ? "SELECT " : ", ";
    if (column.empty()) {
      select += "NULL";
    } else {
      appendName(select, column);
    }
  }
  select += " FROM ";
  appendName(select, rows_.table);
  const auto results = connection_.session().execute(select + thisRow, {rowId(row)});
  if (!results.at(0).rows.empty()) {
    const auto& read = results[0].rows[0];
    for (std::size_t field = 0; field < read.size(); ++field) {
      if (!rows_.columns[field].empty()) row.values[field] = read[field];
    }
  }
}

}  // namespace kebu::engine
