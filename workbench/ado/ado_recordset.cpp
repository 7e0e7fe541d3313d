#include "workbench/ado/ado_recordset.h"

#include <utility>

#include "workbench/ado/ado_error.h"

namespace kebu::workbench {

Ref<ado::Recordset> AdoRecordset::ofResults(AdoConnection& connection, const std::string& source,
                                            std::vector<engine::ResultSet> results) {
  auto recordset = std::make_shared<AdoRecordset>();
  recordset->source_ = source;
  if (!results.empty()) recordset->take(connection, std::move(results.front()));
  return recordset;
}

void AdoRecordset::take(AdoConnection& connection, engine::ResultSet result) {
  rows_ = std::make_shared<RowSet>(std::move(result));
  if (location_ == ado::CursorLocation::Server && cursorType_ == ado::CursorType::ForwardOnly &&
      lockType_ == ado::LockType::ReadOnly) {
    unread_ = std::make_shared<UnreadRows>(UnreadRows{source_});
    connection.occupy(unread_);
  }
  moveTo(nextVisible(-1, 1));
}

void AdoRecordset::setCursorLocation(ado::CursorLocation location) {
  if (rows_) throw adoerror::open();
  location_ = location;
}

void AdoRecordset::setUpdateCriteria(ado::UpdateCriteria criteria) {
  if (location_ != ado::CursorLocation::Client) throw adoerror::noSuchItem();
  criteria_ = criteria;
}

void AdoRecordset::Open(const std::string& source, const Ref<ado::Connection>& connection,
                        ado::CursorType cursorType, ado::LockType lockType) {
  if (rows_) throw adoerror::open();
  connection_ = AdoConnection::behind(connection);
  auto results = connection_->run(source);
  source_ = source;
  // A cursor on the client is always static.
  cursorType_ = location_ == ado::CursorLocation::Client ? ado::CursorType::Static : cursorType;
  lockType_ = lockType;
  filterText_.clear();
  filter_ = {};
  pendingOnly_ = false;
  edit_.reset();
  if (results.empty()) return;  // a statement that gives no rows leaves the recordset closed
  take(*connection_, std::move(results.front()));
}

void AdoRecordset::Close() {
  if (!rows_) throw adoerror::closed();
  if (edit_ && !isBatch()) throw adoerror::notInContext();
  rows_.reset();
  unread_.reset();
  connection_.reset();
  edit_.reset();
}

void AdoRecordset::Requery() {
  static_cast<void>(rows());
  if (!connection_) throw adoerror::notInContext();
  auto results = connection_->run(source_);
  if (results.empty()) throw adoerror::notInContext();
  edit_.reset();
  take(*connection_, std::move(results.front()));
}

Ref<ado::Recordset> AdoRecordset::Clone() {
  static_cast<void>(rows());
  if (cursorType_ == ado::CursorType::ForwardOnly) throw adoerror::notInContext();
  auto clone = std::make_shared<AdoRecordset>();
  clone->rows_ = rows_;
  clone->connection_ = connection_;
  clone->source_ = source_;
  clone->location_ = location_;
  clone->cursorType_ = cursorType_;
  clone->lockType_ = lockType_;
  clone->criteria_ = criteria_;
  clone->position_ = clone->nextVisible(-1, 1);
  return clone;
}

RowSet& AdoRecordset::rows() const {
  if (!rows_) throw adoerror::closed();
  return *rows_;
}

Row& AdoRecordset::current() const {
  RowSet& all = rows();
  if (!atRow()) throw adoerror::noCurrentRecord();
  Row& row = all.rows[static_cast<std::size_t>(position_)];
  if (row.gone || row.pending == Row::Pending::Delete) throw adoerror::deletedRow();
  return row;
}

bool AdoRecordset::visible(std::int64_t position) const {
  const Row& row = rows().rows[static_cast<std::size_t>(position)];
  if (pendingOnly_) return !row.gone && row.pending != Row::Pending::Nothing;
  return !row.gone && row.pending != Row::Pending::Delete && filter_.passes(row.values);
}

std::int64_t AdoRecordset::nextVisible(std::int64_t from, int step) const {
  std::int64_t position = from + step;
  while (position >= 0 && position < count() && !visible(position)) position += step;
  return position;
}

bool AdoRecordset::BOF() const {
  static_cast<void>(rows());
  return !edit_ && (position_ < 0 || (position_ >= count() && !hasVisible()));
}

bool AdoRecordset::EOF_() const {
  static_cast<void>(rows());
  return !edit_ && (position_ >= count() || (position_ < 0 && !hasVisible()));
}

void AdoRecordset::moveTo(std::int64_t position) {
  position_ = position;
  if (unread_ && position >= count()) unread_->atEnd = true;
}

void AdoRecordset::MoveFirst() {
  settleEdit();
  const std::int64_t first = nextVisible(-1, 1);
  if (first >= count()) throw adoerror::noCurrentRecord();
  moveTo(first);
}

void AdoRecordset::MoveLast() {
  settleEdit();
  const std::int64_t last = nextVisible(count(), -1);
  if (last < 0) throw adoerror::noCurrentRecord();
  moveTo(last);
}

void AdoRecordset::MoveNext() {
  settleEdit();
  if (position_ >= count()) throw adoerror::noCurrentRecord();
  moveTo(nextVisible(position_, 1));
}

void AdoRecordset::MovePrevious() {
  if (cursorType_ == ado::CursorType::ForwardOnly) throw adoerror::backward();
  settleEdit();
  if (position_ < 0) throw adoerror::noCurrentRecord();
  moveTo(nextVisible(position_, -1));
}

std::int32_t AdoRecordset::RecordCount() const {
  static_cast<void>(rows());
  if (cursorType_ == ado::CursorType::ForwardOnly) return -1;
  if (allVisible()) return static_cast<std::int32_t>(count());
  std::int32_t number = 0;
  for (std::int64_t i = nextVisible(-1, 1); i < count(); i = nextVisible(i, 1)) ++number;
  return number;
}

std::int32_t AdoRecordset::AbsolutePosition() const {
  static_cast<void>(rows());
  if (!atRow()) return -1;
  if (allVisible()) return static_cast<std::int32_t>(position_ + 1);
  std::int32_t place = 1;
  for (std::int64_t i = nextVisible(-1, 1); i < position_; i = nextVisible(i, 1)) ++place;
  return place;
}

void AdoRecordset::setAbsolutePosition(std::int32_t position) {
  settleEdit();
  std::int64_t found = -1;
  if (allVisible()) {
    found = position - 1;
  } else {
    for (std::int32_t i = 0; i < position && found < count(); ++i) found = nextVisible(found, 1);
  }
  if (position < 1 || found >= count()) throw adoerror::badArgument();
  moveTo(found);
}

void AdoRecordset::setFilter(const std::string& filter) {
  settleEdit();
  filter_ = RowFilter(filter, rows());
  filterText_ = filter;
  pendingOnly_ = false;
  moveTo(nextVisible(-1, 1));
}

const std::vector<ado::Field>& AdoRecordset::fields() const {
  return rows().fields;
}

Value AdoRecordset::value(std::string_view field) const {
  const std::size_t index = rows().indexOf(field);
  const Value* const set = edit_ ? edit_->values.find(index) : nullptr;
  if (set) return *set;
  return edit_ && edit_->isNew ? Value(Null{}) : current().values[index];
}

Value AdoRecordset::originalValue(std::string_view field) const {
  const std::size_t index = rows().indexOf(field);
  if (edit_ && edit_->isNew) return Null{};
  const Row& row = current();
  return row.pending == Row::Pending::Insert ? Value(Null{}) : row.stored(index);
}

std::vector<RowValues> AdoRecordset::GetRows(std::int32_t wanted, std::string_view field) {
  settleEdit();
  const std::size_t first = field.empty() ? 0 : rows().indexOf(field);
  if (!atRow()) throw adoerror::noCurrentRecord();
  std::vector<RowValues> result;
  for (; position_ < count() && (wanted < 0 || static_cast<std::int32_t>(result.size()) < wanted);
       moveTo(nextVisible(position_, 1))) {
    std::span<const Value> values = current().values;
    if (!field.empty()) values = values.subspan(first, 1);
    if (lockType_ == ado::LockType::ReadOnly) {
      result.emplace_back(values, rows_);
    } else {
      // Copied: the rows may be edited before the caller reads them.
      result.emplace_back(Values(values.begin(), values.end()));
    }
  }
  return result;
}

}  // namespace kebu::workbench
