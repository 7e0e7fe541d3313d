#include "workbench/ado/row_writer.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "common/convert.h"
#include "workbench/ado/ado_error.h"
#include "workbench/ado/field_value.h"

namespace kebu::workbench {
namespace {

constexpr const char* thisRow = " WHERE $ROWID = ?";

engine::ast::Literal rowId(const Row& row) {
  return {engine::SqlType::integer(engine::TypeKind::BigInt), Decimal(row.id)};
}

std::size_t positionOf(const std::string& column, const std::vector<std::string>& columns) {
  const auto found = std::find_if(columns.begin(), columns.end(), [&](const std::string& other) {
    return equalsIgnoringCase(other, column);
  });
  return static_cast<std::size_t>(found - columns.begin());
}

}  // namespace

void RowWriter::send(Row& row) const {
  if (row.pending == Row::Pending::Nothing) return;
  ParameterStatement statement = row.pending == Row::Pending::Insert   ? insert(row)
                                 : row.pending == Row::Pending::Update ? update(row)
                                                                       : remove(row);
  connection_.edit(statement);
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

ParameterStatement RowWriter::begin(const char* start, std::size_t valueCount) const {
  ParameterStatement statement(valueCount, connection_.isObserved());
  statement.add(start).addName(rows_.table);
  return statement;
}

ParameterStatement RowWriter::insert(const Row& row) const {
  ParameterStatement statement = begin("INSERT INTO ", row.before.size());
  if (row.before.empty()) {
    statement.add(" DEFAULT VALUES");
    return statement;
  }
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
  statement.add(")");
  return statement;
}

ParameterStatement RowWriter::update(const Row& row) const {
  ParameterStatement statement = begin("UPDATE ", row.before.size() + 1);
  const char* separator = " SET ";
  for (const auto& [field, old] : row.before) {
    statement.add(separator).addName(rows_.columns[field]).add(" = ");
    statement.addValue(rows_.types[field], row.values[field]);
    separator = ", ";
  }
  addPlace(statement, row);
  return statement;
}

ParameterStatement RowWriter::remove(const Row& row) const {
  ParameterStatement statement = begin("DELETE FROM ", 1);
  addPlace(statement, row);
  return statement;
}

/// The WHERE clause: the row's id in the statement that is run, its key in the text for readers.
void RowWriter::addPlace(ParameterStatement& statement, const Row& row) const {
  statement.command += thisRow;
  statement.values.push_back(rowId(row));
  if (statement.readable) statement.text += readableKey(row);
}

/// The fields of the primary key, ascending. Without a key, or when not all of it was selected,
/// all fields of the table.
std::set<std::size_t> RowWriter::keyFields() const {
  const engine::Session& session = connection_.session();
  const engine::TablePtr table =
      session.database().catalogue().table({{rows_.table}, {}}, session.id());
  std::set<std::size_t> fields;
  for (const auto& candidate : table ? table->keys : std::vector<engine::ast::KeyDef>()) {
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

/// The condition by which ADO would find the row.
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

/// After an UPDATE the row has the values that were sent: nothing is read back.
void RowWriter::keepAsStored(Row& row, ParameterStatement& update) {
  auto sent = update.values.begin();
  for (const auto& [field, old] : row.before) {
    Value& value = row.values[field] = std::move(sent->value);
    if (sent->type.kind == engine::TypeKind::Guid && !value.isNull())
      value = "{" + toText(value) + "}";
    ++sent;
  }
}

/// Reads a new row back: its identity and its defaults are made by the database.
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

}  // namespace kebu::workbench
