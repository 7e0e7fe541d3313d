#include "workbench/engine/row_writer.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/ado_error.h"
#include "workbench/engine/cast.h"
#include "workbench/engine/field_value.h"

namespace kebu::engine {
namespace {

std::string bracketed(const std::string& name) {
  return "[" + (name.find(']') == std::string::npos ? name : replaceAll(name, "]", "]]")) + "]";
}

std::string variableName(std::size_t field) {
  return "@P" + std::to_string(field + 1);
}

Preset rowId(const Row& row) {
  return {"@ROW", SqlType::integer(TypeKind::BigInt), Decimal(row.id)};
}

constexpr const char* thisRow = " WHERE $ROWID = @ROW";

}  // namespace

void RowWriter::send(Row& row) const {
  if (row.pending == Row::Pending::Nothing) return;
  const Statement statement = row.pending == Row::Pending::Insert   ? insert(row)
                              : row.pending == Row::Pending::Update ? update(row)
                                                                    : remove(row);
  connection_.edit(statement.text, statement.command, statement.values);
  if (row.pending == Row::Pending::Insert) row.id = connection_.session().lastRowId();
  switch (row.pending) {
    case Row::Pending::Insert:
      readBack(row);
      break;
    case Row::Pending::Update:
      keepAsStored(row);
      break;
    default:
      row.gone = true;
  }
  row.pending = Row::Pending::Nothing;
  row.changed.clear();
}

RowWriter::Statement RowWriter::insert(const Row& row) const {
  const std::string into = "INSERT INTO " + bracketed(rows_.table);
  if (row.changed.empty()) return {into + " DEFAULT VALUES", into + " DEFAULT VALUES", {}};
  Statement statement;
  std::string columns;
  std::string texts;
  std::string variables;
  for (const std::size_t field : row.changed) {
    const std::string comma = columns.empty() ? "" : ", ";
    columns += comma + bracketed(rows_.columns[field]);
    texts += comma + sqlText(row.values[field]);
    variables += comma + variableName(field);
    statement.values.push_back({variableName(field), rows_.types[field], row.values[field]});
  }
  const std::string head = into + " (" + columns + ") VALUES (";
  statement.text = head + texts + ")";
  statement.command = head + variables + ")";
  return statement;
}

RowWriter::Statement RowWriter::update(const Row& row) const {
  Statement statement;
  statement.values.reserve(row.changed.size() + 1);
  statement.text.reserve(1024);
  statement.command.reserve(1024);
  const auto write = [&](std::string_view piece) {
    statement.text += piece;
    statement.command += piece;
  };
  write("UPDATE " + bracketed(rows_.table) + " SET ");
  for (const std::size_t field : row.changed) {
    const Value& value = row.values[field];
    const Preset& preset =
        statement.values.emplace_back(Preset{variableName(field), rows_.types[field], value});
    write(statement.values.size() == 1 ? "" : ", ");
    write(bracketed(rows_.columns[field]));
    write(" = ");
    statement.text += sqlText(value);
    statement.command += preset.name;
  }
  statement.text += readableKey(row);
  statement.command += thisRow;
  statement.values.push_back(rowId(row));
  return statement;
}

RowWriter::Statement RowWriter::remove(const Row& row) const {
  const std::string head = "DELETE FROM " + bracketed(rows_.table);
  return {head + readableKey(row), head + thisRow, {rowId(row)}};
}

/// The row as ADO names it: by the primary key, without one by all that was read.
std::string RowWriter::readableKey(const Row& row) const {
  const Session& session = connection_.session();
  const TablePtr table = session.database().catalogue().table({{rows_.table}, {}}, session.id());
  std::vector<std::string> key;
  for (const auto& candidate : table ? table->keys : std::vector<ast::KeyDef>()) {
    if (candidate.primary) key = candidate.columns;
  }
  const auto read = [&](const std::string& column) {
    return std::any_of(rows_.columns.begin(), rows_.columns.end(),
                       [&](const std::string& c) { return equalsIgnoringCase(c, column); });
  };
  const bool byKey = !key.empty() && std::all_of(key.begin(), key.end(), read);
  std::string text;
  for (std::size_t field = 0; field < rows_.columns.size(); ++field) {
    const std::string& column = rows_.columns[field];
    const bool named =
        byKey ? std::any_of(key.begin(), key.end(),
                            [&](const std::string& k) { return equalsIgnoringCase(k, column); })
              : !column.empty();
    if (!named) continue;
    const Value& value = row.original[field];
    text += (text.empty() ? " WHERE " : " AND ") + bracketed(column) +
            (value.isNull() ? " IS NULL" : " = " + sqlText(value));
  }
  return text;
}

/// An update leaves nothing to be learnt from the database.
void RowWriter::keepAsStored(Row& row) const {
  for (const std::size_t field : row.changed) {
    const SqlType& type = rows_.types[field];
    Value& value = row.values[field];
    value = castTo(value, type);
    if (type.kind == TypeKind::Guid && !value.isNull()) value = "{" + toText(value) + "}";
  }
  for (const std::size_t field : row.changed) row.original[field] = row.values[field];
}

/// What the database made of a new row: identity, defaults, rounding.
void RowWriter::readBack(Row& row) const {
  std::string list;
  for (const auto& column : rows_.columns) {
    list += (list.empty() ? "" : ", ") + (column.empty() ? std::string("NULL") : bracketed(column));
  }
  const auto results = connection_.session().execute(
      "SELECT " + list + " FROM " + bracketed(rows_.table) + thisRow, {rowId(row)});
  if (!results.at(0).rows.empty()) {
    const auto& read = results[0].rows[0];
    for (std::size_t field = 0; field < read.size(); ++field) {
      if (!rows_.columns[field].empty()) row.values[field] = read[field];
    }
  }
  row.original = row.values;
}

}  // namespace kebu::engine
