// The part of AdoRecordset that changes rows.

#include <algorithm>
#include <utility>

#include "workbench/ado/ado_error.h"
#include "workbench/ado/ado_recordset.h"
#include "workbench/ado/field_value.h"
#include "workbench/ado/row_writer.h"

namespace kebu::workbench {

namespace {

constexpr std::size_t usualEdit = 16;  // fields

}  // namespace

void AdoRecordset::requireUpdatable() const {
  if (rows().table.empty() || lockType_ == ado::LockType::ReadOnly) throw adoerror::notUpdatable();
}

/// A cursor on the server has no such property: it knows its rows by their key.
ado::UpdateCriteria AdoRecordset::criteria() const {
  return location_ == ado::CursorLocation::Client ? criteria_ : ado::UpdateCriteria::Key;
}

void AdoRecordset::setValue(std::string_view field, const Value& value) {
  const std::size_t index = rows().indexOf(field);
  requireUpdatable();
  if (rows().columns[index].empty()) throw adoerror::badValue();
  Value converted = forField(value, rows().types[index]);
  if (!edit_) {
    static_cast<void>(current());  // throws when there is none
    edit_ = Edit{};
    edit_->values.reserve(usualEdit);
  }
  edit_->values.set(index, std::move(converted));
}

void AdoRecordset::AddNew() {
  requireUpdatable();
  settleEdit();
  edit_ = Edit{true, {}};
}

void AdoRecordset::send(Row& row) {
  if (!connection_) throw adoerror::notUpdatable();
  RowWriter(*connection_, rows(), criteria()).send(row);
}

/// When the statement fails, the row is restored and the edit stays, so that it can be retried.
void AdoRecordset::sendOrRestore(Row& row) {
  try {
    send(row);
  } catch (...) {
    row.restore();
    throw;
  }
}

void AdoRecordset::Update() {
  static_cast<void>(rows());
  if (!edit_) return;
  if (edit_->isNew) {
    Row row;
    row.values.assign(rows().fields.size(), Null{});
    row.pending = Row::Pending::Insert;
    row.change(edit_->values);
    if (!isBatch()) send(row);
    rows().rows.push_back(std::move(row));
    position_ = count() - 1;
  } else {
    Row& row = current();
    row.change(edit_->values);
    if (!isBatch()) sendOrRestore(row);
  }
  edit_.reset();
  if (connection_ && connection_->manners().leavesFilterAtOnce && atRow() && !visible(position_)) {
    moveTo(nextVisible(position_, 1));
  }
}

void AdoRecordset::CancelUpdate() {
  static_cast<void>(rows());
  // Later documentation does not say so any more.
  if (!edit_) throw adoerror::notInContext();
  edit_.reset();
}

void AdoRecordset::settleEdit() {
  static_cast<void>(rows());
  if (edit_) Update();
}

void AdoRecordset::Delete() {
  requireUpdatable();
  if (edit_ && edit_->isNew) throw adoerror::notInContext();
  Row& row = current();
  edit_.reset();
  rows().anyDeleted = true;
  if (row.pending == Row::Pending::Insert) {
    row.gone = true;  // it was never inserted
    return;
  }
  row.restore();
  row.pending = Row::Pending::Delete;
  if (!isBatch()) sendOrRestore(row);
}

void AdoRecordset::UpdateBatch() {
  settleEdit();
  for (Row& row : rows().rows) {
    if (!row.gone) send(row);
  }
}

void AdoRecordset::CancelBatch() {
  static_cast<void>(rows());
  edit_.reset();
  for (Row& row : rows().rows) {
    if (row.pending == Row::Pending::Nothing) continue;
    if (row.pending == Row::Pending::Insert) {
      row.gone = true;
      rows().anyDeleted = true;
    }
    row.restore();
  }
}

ado::EditMode AdoRecordset::editMode() const {
  static_cast<void>(rows());
  if (edit_) return edit_->isNew ? ado::EditMode::Add : ado::EditMode::InProgress;
  if (atRow()) {
    const Row& row = rows().rows[static_cast<std::size_t>(position_)];
    if (row.gone || row.pending == Row::Pending::Delete) return ado::EditMode::Delete;
  }
  return ado::EditMode::None;
}

bool AdoRecordset::hasPendingBatch() const {
  const auto& all = rows().rows;
  return std::any_of(all.begin(), all.end(), [](const Row& row) {
    return !row.gone && row.pending != Row::Pending::Nothing;
  });
}

void AdoRecordset::filterPending() {
  setFilter("");
  pendingOnly_ = true;
  moveTo(nextVisible(-1, 1));
}

std::int32_t AdoRecordset::status() const {
  static_cast<void>(rows());
  constexpr std::int32_t isNew = 1, modified = 2, deleted = 4, unmodified = 8;
  if (edit_ && edit_->isNew) return isNew;
  if (!atRow()) throw adoerror::noCurrentRecord();
  switch (rows().rows[static_cast<std::size_t>(position_)].pending) {
    case Row::Pending::Insert:
      return isNew;
    case Row::Pending::Update:
      return modified;
    case Row::Pending::Delete:
      return deleted;
    default:
      return edit_ ? modified : unmodified;
  }
}

}  // namespace kebu::workbench
