#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "ado/recordset.h"
#include "windows/ado/field_table.h"
#include "windows/support/identity.h"

namespace kebu::windows {

/// A recordset object of ADO. One that can only be read forward is read ahead,
/// a block of rows at a time, as soon as somebody moves on in it.
class AdoRecordset : public ado::Recordset, public Foreign {
 public:
  using Role = ado::Recordset;
  using Foreign::Foreign;

  void setCursorLocation(ado::CursorLocation location) override;
  void setUpdateCriteria(ado::UpdateCriteria criteria) override;
  void Open(const std::string& source, const Ref<ado::Connection>& connection,
            ado::CursorType cursorType, ado::LockType lockType) override;
  void Close() override;
  bool isOpen() const override;
  void Requery() override;
  Ref<ado::Recordset> Clone() override;

  bool BOF() const override;
  bool EOF_() const override;
  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  std::int32_t RecordCount() const override;
  std::int32_t AbsolutePosition() const override;
  void setAbsolutePosition(std::int32_t position) override;
  void setFilter(const std::string& filter) override;
  std::string filter() const override;

  const std::vector<ado::Field>& fields() const override;
  Value value(std::string_view field) const override;
  void setValue(std::string_view field, const Value& value) override;
  Value originalValue(std::string_view field) const override;
  std::vector<RowValues> GetRows(std::int32_t rows, std::string_view field) override;

  void AddNew() override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;
  void UpdateBatch() override;
  void CancelBatch() override;
  ado::EditMode editMode() const override;
  bool hasPendingBatch() const override;

 private:
  using Rows = std::vector<RowValues>;

  /// Has the rows come by a call, which takes ADO's options.
  template <class Call>
  void arrive(const Call& call);
  ado::LockType lockType() const;
  bool isEditing() const;
  Value fieldValue(std::string_view field, std::wstring_view member) const;
  Rows getRows(std::int32_t rows) const;
  Rows getColumn(std::int32_t rows, std::string_view field);
  void putUpdateCriteria();
  void send(std::wstring_view member, const Dispatch::Arguments& arguments = {});
  /// Whether the current row is one that was read ahead.
  bool isAhead() const { return at_ < ahead_.size(); }
  bool canReadAhead();
  void readAhead();
  void dropAhead();

  Ref<ado::Connection> connection_;  ///< that it was opened on here
  std::string source_;               ///< the statement, when it was opened here
  mutable FieldTable fields_;
  /// The current row and those behind it; the object stands behind them all.
  Rows ahead_;
  std::size_t at_ = 0;
  std::int32_t firstAhead_ = 0;  ///< the position of the first of them
  std::optional<bool> forwardOnly_;
  /// Still to be set, when the recordset is open.
  std::optional<ado::UpdateCriteria> criteriaWhenOpen_;
};

}  // namespace kebu::windows
