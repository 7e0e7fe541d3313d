#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ado/recordset.h"
#include "workbench/ado/ado_connection.h"
#include "workbench/ado/row_filter.h"
#include "workbench/ado/row_set.h"

namespace kebu::workbench {

/// An ADO recordset. With every kind of cursor its rows are a snapshot in memory. A cursor on the
/// client is static; one on the server finds a changed row by its key.
class AdoRecordset : public ado::Recordset {
 public:
  /// The first result of a statement, forward-only and read-only; closed when there is none.
  static Ref<ado::Recordset> ofResults(AdoConnection& connection, const std::string& source,
                                       std::vector<engine::ResultSet> results);

  void setCursorLocation(ado::CursorLocation location) override;
  void setUpdateCriteria(ado::UpdateCriteria criteria) override;
  void Open(const std::string& source, const Ref<ado::Connection>& connection,
            ado::CursorType cursorType, ado::LockType lockType) override;
  void Close() override;
  bool isOpen() const override { return rows_ != nullptr; }
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
  std::string filter() const override { return filterText_; }

  const std::vector<ado::Field>& fields() const override;
  Value value(std::string_view field) const override;
  void setValue(std::string_view field, const Value& value) override;
  Value originalValue(std::string_view field) const override;
  std::vector<RowValues> GetRows(std::int32_t wanted, std::string_view field) override;

  void AddNew() override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;
  void UpdateBatch() override;
  void CancelBatch() override;
  ado::EditMode editMode() const override;
  bool hasPendingBatch() const override;

  /// ADO's filter for the rows that wait for UpdateBatch, deleted ones included.
  void filterPending();
  /// ADO's status of the current row: 1 new, 2 modified, 4 deleted, 8 as it was.
  std::int32_t status() const;

 private:
  /// The fields set in the current row, or in a new one, since the last Update.
  struct Edit {
    bool isNew = false;
    FieldValues values;
  };

  RowSet& rows() const;
  /// The current row; 3021 when there is none.
  Row& current() const;
  bool atRow() const { return position_ >= 0 && position_ < count(); }
  std::int64_t count() const { return static_cast<std::int64_t>(rows().rows.size()); }
  bool visible(std::int64_t position) const;
  std::int64_t nextVisible(std::int64_t from, int step) const;
  /// Whether every row is visible, so that positions need not be counted.
  bool allVisible() const { return !pendingOnly_ && !rows().anyDeleted && filter_.passesAll(); }
  bool hasVisible() const { return nextVisible(-1, 1) < count(); }
  void moveTo(std::int64_t position);
  /// Keeps the rows of a statement and stands on the first.
  void take(AdoConnection& connection, engine::ResultSet result);
  ado::UpdateCriteria criteria() const;
  bool isBatch() const { return lockType_ == ado::LockType::BatchOptimistic; }
  void requireUpdatable() const;
  /// Calls Update when an edit is in progress, as moving to another row does.
  void settleEdit();
  void send(Row& row);
  void sendOrRestore(Row& row);

  std::shared_ptr<RowSet> rows_;
  std::shared_ptr<AdoConnection> connection_;
  std::string source_;
  ado::CursorLocation location_ = ado::CursorLocation::Server;
  ado::CursorType cursorType_ = ado::CursorType::ForwardOnly;
  ado::LockType lockType_ = ado::LockType::ReadOnly;
  ado::UpdateCriteria criteria_ = ado::UpdateCriteria::UpdatedColumns;
  /// While the rows occupy the connection.
  std::shared_ptr<UnreadRows> unread_;
  /// The index of the current row; -1 before the first, their number behind the last.
  std::int64_t position_ = 0;
  std::string filterText_;
  RowFilter filter_;
  bool pendingOnly_ = false;
  std::optional<Edit> edit_;
};

}  // namespace kebu::workbench
