#include "windows/ado/ado_recordset.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "windows/ado/ado_connection.h"
#include "windows/ado/ado_constants.h"
#include "windows/ado/ado_objects.h"
#include "windows/ado/failing_statement.h"
#include "windows/ado/results.h"
#include "windows/support/safe_array.h"
#include "windows/support/values.h"

namespace kebu::windows {

namespace {

constexpr std::int32_t noCurrentRecord = 3021;
constexpr std::int32_t noSuchItem = 3265;
constexpr std::int32_t deletedRow = -2147217885;

}  // namespace

// ---- opening

void AdoRecordset::setCursorLocation(ado::CursorLocation location) {
  object_.put(L"CursorLocation", static_cast<std::int32_t>(location));
}

void AdoRecordset::setUpdateCriteria(ado::UpdateCriteria criteria) {
  criteriaWhenOpen_ = criteria;
  try {
    putUpdateCriteria();
  } catch (const RuntimeError& error) {
    // Documented is that the property can be set now; used it is on open recordsets as well.
    if (error.number() != noSuchItem) throw;
  }
}

void AdoRecordset::putUpdateCriteria() {
  const Dispatch property = object_.get(L"Properties", {std::string_view("Update Criteria")});
  property.put(L"Value", static_cast<std::int32_t>(*criteriaWhenOpen_));
  criteriaWhenOpen_.reset();
}

void AdoRecordset::Open(const std::string& source, const Ref<ado::Connection>& connection,
                        ado::CursorType cursorType, ado::LockType lockType) {
  connection_ = connection;
  source_ = source;
  arrive([&](std::int32_t options) {
    object_.call(L"Open", {source, unwrap(connection), static_cast<std::int32_t>(cursorType),
                           static_cast<std::int32_t>(lockType), commandIsText | options});
  });
  object_ = firstWithRows(object_);
  if (criteriaWhenOpen_) putUpdateCriteria();
}

template <class Call>
void AdoRecordset::arrive(const Call& call) {
  const auto* const adapter = dynamic_cast<const AdoConnection*>(connection_.get());
  tracingFailure(source_, [&] {
    if (adapter && adapter->isAsynchronous()) {
      adapter->clearErrors();
      call(executeAsynchronously | fetchAsynchronously);
      adapter->await(object_);
    } else {
      call(0);
    }
  });
  fields_.forget();
  dropAhead();
}

void AdoRecordset::Close() {
  object_.call(L"Close");
  fields_.forget();
  dropAhead();
}

bool AdoRecordset::isOpen() const {
  return isStateOpen(object_);
}

void AdoRecordset::Requery() {
  arrive([&](std::int32_t options) { object_.call(L"Requery", {options}); });
}

Ref<ado::Recordset> AdoRecordset::Clone() {
  return wrapRecordset(object_.get(L"Clone").object().get());
}

// ---- moving

bool AdoRecordset::BOF() const {
  return !isAhead() && object_.flag(L"BOF");
}

bool AdoRecordset::EOF_() const {
  return !isAhead() && object_.flag(L"EOF");
}

void AdoRecordset::MoveFirst() {
  object_.call(L"MoveFirst");
  dropAhead();
}

void AdoRecordset::MoveLast() {
  object_.call(L"MoveLast");
  dropAhead();
}

void AdoRecordset::MoveNext() {
  if (isAhead()) {
    ++at_;
  } else {
    object_.call(L"MoveNext");
  }
  if (!isAhead() && canReadAhead()) readAhead();
}

void AdoRecordset::MovePrevious() {
  object_.call(L"MovePrevious");
  dropAhead();
}

std::int32_t AdoRecordset::RecordCount() const {
  return object_.number(L"RecordCount");
}

std::int32_t AdoRecordset::AbsolutePosition() const {
  if (isAhead()) return firstAhead_ < 0 ? -1 : firstAhead_ + static_cast<std::int32_t>(at_);
  // ADO has negative numbers for "before the first", "behind the last" and "unknown".
  return std::max(object_.number(L"AbsolutePosition"), -1);
}

void AdoRecordset::setAbsolutePosition(std::int32_t position) {
  object_.put(L"AbsolutePosition", position);
  dropAhead();
}

void AdoRecordset::setFilter(const std::string& filter) {
  object_.put(L"Filter", filter.empty() ? Variant(filterNone) : Variant(filter));
  dropAhead();
}

std::string AdoRecordset::filter() const {
  const Value filter = object_.value(L"Filter");
  return filter.isText() ? filter.as<std::string>() : std::string();
}

// ---- reading

const std::vector<ado::Field>& AdoRecordset::fields() const {
  return fields_.descriptions(object_);
}

/// What the database gives is never empty; ADO calls a new row's fields so.
Value AdoRecordset::fieldValue(std::string_view field, std::wstring_view member) const {
  if (isAhead()) return ahead_[at_][fields_.indexOf(object_, field)];
  Value value = fields_.named(object_, field).value(member);
  return value.isEmpty() ? Value(Null{}) : value;
}

Value AdoRecordset::value(std::string_view field) const {
  return fieldValue(field, L"Value");
}

Value AdoRecordset::originalValue(std::string_view field) const {
  return fieldValue(field, L"OriginalValue");
}

AdoRecordset::Rows AdoRecordset::getRows(std::int32_t rows) const {
  return rowsIn(object_.call(L"GetRows", {rows}).get());
}

AdoRecordset::Rows AdoRecordset::getColumn(std::int32_t rows, std::string_view field) {
  const std::size_t index = fields_.indexOf(object_, field);
  if (isAhead()) {
    Rows column;
    for (const RowValues& row : GetRows(rows, {})) column.emplace_back(std::vector{row[index]});
    return column;
  }
  return rowsIn(object_.call(L"GetRows", {rows, bookmarkCurrent, Variant(field)}).get());
}

std::vector<RowValues> AdoRecordset::GetRows(std::int32_t rows, std::string_view field) {
  if (!field.empty()) return getColumn(rows, field);
  if (!isAhead()) return getRows(rows);
  const auto left = static_cast<std::int32_t>(ahead_.size() - at_);
  const std::int32_t taken = rows < 0 ? left : std::min(rows, left);
  const auto from = ahead_.begin() + static_cast<std::ptrdiff_t>(at_);
  Rows result(std::make_move_iterator(from), std::make_move_iterator(from + taken));
  at_ += static_cast<std::size_t>(taken);
  if ((rows < 0 || taken < rows) && !object_.flag(L"EOF")) {
    Rows more = getRows(rows < 0 ? rows : rows - taken);
    std::move(more.begin(), more.end(), std::back_inserter(result));
  }
  return result;
}

bool AdoRecordset::canReadAhead() {
  if (!forwardOnly_) {
    const auto cursorType = static_cast<ado::CursorType>(object_.number(L"CursorType"));
    forwardOnly_ =
        cursorType == ado::CursorType::ForwardOnly && lockType() == ado::LockType::ReadOnly;
  }
  return *forwardOnly_;
}

void AdoRecordset::readAhead() {
  constexpr std::int32_t blockRows = 256;
  ahead_.clear();
  at_ = 0;
  if (object_.flag(L"EOF")) return;
  try {
    firstAhead_ = AbsolutePosition();
  } catch (const RuntimeError&) {
    firstAhead_ = -1;  // not every provider counts such rows
  }
  ahead_ = getRows(blockRows);
}

void AdoRecordset::dropAhead() {
  ahead_.clear();
  at_ = 0;
  forwardOnly_.reset();
}

// ---- editing

ado::LockType AdoRecordset::lockType() const {
  return static_cast<ado::LockType>(object_.number(L"LockType"));
}

void AdoRecordset::setValue(std::string_view field, const Value& value) {
  fields_.named(object_, field).put(L"Value", toVariant(value));
}

void AdoRecordset::AddNew() {
  object_.call(L"AddNew");
}

bool AdoRecordset::isEditing() const {
  const ado::EditMode mode = editMode();
  return mode == ado::EditMode::InProgress || mode == ado::EditMode::Add;
}

/// The statement that ADO makes of a changed row is not known here.
void AdoRecordset::send(std::wstring_view member, const Dispatch::Arguments& arguments) {
  tracingFailure("(a changed row of) " + source_, [&] { object_.call(member, arguments); });
}

// ADO objects to ending an edit that was never begun; here that is nothing to do.
void AdoRecordset::Update() {
  if (isEditing()) send(L"Update");
}

// Whether ADO refuses it without an edit is open.
void AdoRecordset::CancelUpdate() {
  if (isEditing()) object_.call(L"CancelUpdate");
}

void AdoRecordset::Delete() {
  send(L"Delete");
}

void AdoRecordset::UpdateBatch() {
  send(L"UpdateBatch", {affectAllChapters});
}

void AdoRecordset::CancelBatch() {
  object_.call(L"CancelBatch", {affectAllChapters});
}

// ADO has no mode for a place without a row.
ado::EditMode AdoRecordset::editMode() const {
  if (isAhead()) return ado::EditMode::None;
  try {
    return static_cast<ado::EditMode>(object_.number(L"EditMode"));
  } catch (const RuntimeError& error) {
    if (error.number() == noCurrentRecord) return ado::EditMode::None;
    if (error.number() == deletedRow) return ado::EditMode::Delete;
    throw;
  }
}

// Asked of a clone, whose filter and position are its own.
bool AdoRecordset::hasPendingBatch() const {
  if (isOpen() && lockType() != ado::LockType::BatchOptimistic) return false;
  const Dispatch pending = object_.get(L"Clone");
  pending.put(L"Filter", filterPendingRecords);
  return pending.number(L"RecordCount") > 0;
}

}  // namespace kebu::windows
