#include "workbench/ado/row_writer.h"

#include <algorithm>

#include "common/convert.h"
#include "workbench/ado/ado_error.h"
#include "workbench/ado/field_value.h"

namespace kebu::workbench {
namespace {

std::string bracketed(const std::string& name) {
  return "[" + replaceAll(name, "]", "]]") + "]";
}

/// Text without limit cannot be compared.
bool isComparable(const engine::SqlType& type) {
  return !type.isText() || type.size >= 0;
}

}  // namespace

void RowWriter::send(Row& row) const {
  switch (row.pending) {
    case Row::Pending::Nothing:
      return;
    case Row::Pending::Insert:
      connection_.edit(insert(row));
      readIdentity(row);
      break;
    case Row::Pending::Update:
      connection_.edit(update(row));
      break;
    case Row::Pending::Delete:
      connection_.edit(remove(row));
      row.gone = true;
      break;
  }
  row.settle();
}

std::string RowWriter::insert(const Row& row) const {
  const std::string start = "INSERT INTO " + bracketed(rows_.table);
  if (row.before.empty()) return start + " DEFAULT VALUES";
  std::string columns;
  std::string values;
  for (const auto& [field, unset] : row.before) {
    const char* const separator = columns.empty() ? "" : ", ";
    columns += separator + name(field);
    values += separator + newValue(row, field);
  }
  return start + " (" + columns + ") VALUES (" + values + ")";
}

std::string RowWriter::update(const Row& row) const {
  std::string assignments;
  for (const auto& [field, old] : row.before) {
    assignments += (assignments.empty() ? "" : ", ") + name(field) + " = " + newValue(row, field);
  }
  return "UPDATE " + bracketed(rows_.table) + " SET " + assignments + condition(row);
}

std::string RowWriter::remove(const Row& row) const {
  return "DELETE FROM " + bracketed(rows_.table) + condition(row);
}

std::string RowWriter::condition(const Row& row) const {
  std::string text;
  for (const std::size_t field : conditionFields(row)) {
    text += (text.empty() ? " WHERE " : " AND ") + name(field);
    const Value& value = row.stored(field);
    text += value.isNull() ? " IS NULL" : " = " + literalOf(value, rows_.types[field]);
  }
  return text;
}

/// The fields whose old values find the row, ascending.
std::vector<std::size_t> RowWriter::conditionFields(const Row& row) const {
  using ado::UpdateCriteria;
  std::vector<std::size_t> fields = keyFields();
  const bool keyless = fields.empty();
  if (criteria_ == UpdateCriteria::Key) {
    if (keyless) throw adoerror::insufficientKey();
    return fields;
  }
  // No table here has a timestamp, for lack of which ADO takes all columns.
  const bool isUpdate = row.pending == Row::Pending::Update;
  if (criteria_ != UpdateCriteria::UpdatedColumns || (keyless && !isUpdate)) {
    return comparableFields();
  }
  for (const auto& [field, old] : row.before) {
    if (isComparable(rows_.types[field])) fields.push_back(field);
  }
  std::sort(fields.begin(), fields.end());
  fields.erase(std::unique(fields.begin(), fields.end()), fields.end());
  if (fields.empty()) throw adoerror::insufficientKey();
  return fields;
}

/// The fields of the primary key; none without a key, or when not all of it was selected.
std::vector<std::size_t> RowWriter::keyFields() const {
  std::vector<std::size_t> fields;
  const engine::TablePtr origin = table();
  for (const auto& key : origin ? origin->keys : std::vector<engine::ast::KeyDef>()) {
    if (!key.primary) continue;
    for (const std::string& column : key.columns) {
      const auto found = std::find_if(
          rows_.columns.begin(), rows_.columns.end(),
          [&](const std::string& candidate) { return equalsIgnoringCase(candidate, column); });
      if (found == rows_.columns.end()) return {};
      fields.push_back(static_cast<std::size_t>(found - rows_.columns.begin()));
    }
  }
  return fields;
}

std::vector<std::size_t> RowWriter::comparableFields() const {
  std::vector<std::size_t> fields;
  for (std::size_t field = 0; field < rows_.columns.size(); ++field) {
    if (!rows_.columns[field].empty() && isComparable(rows_.types[field])) fields.push_back(field);
  }
  return fields;
}

engine::TablePtr RowWriter::table() const {
  const engine::Session& session = connection_.session();
  return session.database().catalogue().table({{rows_.table}, {}}, session.id());
}

/// The identity is all that ADO reads of a new row: neither defaults nor what a trigger changed.
void RowWriter::readIdentity(Row& row) const {
  const engine::TablePtr origin = table();
  if (!origin || origin->identity < 0) return;
  const auto& column = origin->columns[static_cast<std::size_t>(origin->identity)];
  const auto found = std::find(rows_.columns.begin(), rows_.columns.end(), column.name);
  if (found == rows_.columns.end()) return;
  constexpr std::int32_t foreign = 1000;  // how far a trigger's other table is ahead
  const Value read = connection_.session().globalVariable("@@IDENTITY");
  const std::int32_t shift = connection_.manners().foreignIdentity ? foreign : 0;
  row.values[static_cast<std::size_t>(found - rows_.columns.begin())] =
      forField(toDecimal(read) + Decimal(shift), column.type);
}

std::string RowWriter::name(std::size_t field) const {
  return bracketed(rows_.columns[field]);
}

std::string RowWriter::newValue(const Row& row, std::size_t field) const {
  return literalOf(row.values[field], rows_.types[field]);
}

}  // namespace kebu::workbench
