#include "controls/fixed_rows.h"

#include <utility>

namespace kebu::controls {

namespace {

RuntimeError notSupported() {
  return {3251, "The rows of this recordset are fixed.", "ADODB"};
}

RuntimeError noCurrentRecord() {
  return {3021, "Either BOF or EOF is True, or the current record has been deleted.", "ADODB"};
}

}  // namespace

FixedRows::FixedRows(std::vector<ado::Field> fields, std::vector<RowValues> rows)
    : content_(std::make_shared<const Content>(Content{std::move(fields), std::move(rows)})) {}

const FixedRows::Content& FixedRows::content() const {
  if (!content_) throw RuntimeError(3704, "The recordset is closed.", "ADODB");
  return *content_;
}

const RowValues& FixedRows::current() const {
  if (BOF() || EOF_()) throw noCurrentRecord();
  return content().rows[static_cast<std::size_t>(position_ - 1)];
}

void FixedRows::Open(const std::string& /*source*/, const Ref<ado::Connection>& /*connection*/,
                     ado::CursorType /*cursorType*/, ado::LockType /*lockType*/) {
  throw notSupported();
}

void FixedRows::Requery() {
  throw notSupported();
}

Ref<ado::Recordset> FixedRows::Clone() {
  auto clone = std::make_shared<FixedRows>(*this);
  clone->MoveFirst();
  return clone;
}

void FixedRows::MoveNext() {
  if (EOF_()) throw noCurrentRecord();
  ++position_;
}

void FixedRows::MovePrevious() {
  if (BOF()) throw noCurrentRecord();
  --position_;
}

std::int32_t FixedRows::RecordCount() const {
  return static_cast<std::int32_t>(content().rows.size());
}

std::int32_t FixedRows::AbsolutePosition() const {
  return BOF() || EOF_() ? -1 : position_;
}

void FixedRows::setAbsolutePosition(std::int32_t position) {
  if (position < 1 || position > RecordCount()) throw noCurrentRecord();
  position_ = position;
}

void FixedRows::setFilter(const std::string& filter) {
  if (!filter.empty()) throw notSupported();
  MoveFirst();
}

Value FixedRows::value(std::string_view field) const {
  return current()[ado::requireIndex(fields(), field)];
}

void FixedRows::setValue(std::string_view /*field*/, const Value& /*value*/) {
  throw notSupported();
}

std::vector<RowValues> FixedRows::GetRows(std::int32_t rows, std::string_view field) {
  static_cast<void>(current());
  const bool isWhole = field.empty();
  const std::size_t index = isWhole ? 0 : ado::requireIndex(fields(), field);
  std::vector<RowValues> taken;
  for (; !EOF_() && (rows < 0 || static_cast<std::int32_t>(taken.size()) < rows); MoveNext()) {
    taken.push_back(isWhole ? current() : RowValues({current()[index]}));
  }
  return taken;
}

void FixedRows::AddNew() {
  throw notSupported();
}

void FixedRows::Delete() {
  throw notSupported();
}

}  // namespace kebu::controls
