#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ado/recordset.h"

namespace kebu::controls {

/// Rows that the program has made itself, as a recordset that a grid can show. No database is
/// behind them: they cannot be changed, filtered or read again, which is error 3251.
class FixedRows final : public ado::Recordset {
 public:
  /// Every row has a value for each field. Stands on the first row.
  FixedRows(std::vector<ado::Field> fields, std::vector<RowValues> rows);

  void setCursorLocation(ado::CursorLocation /*location*/) override {}
  void setUpdateCriteria(ado::UpdateCriteria /*criteria*/) override {}
  void Open(const std::string& source, const Ref<ado::Connection>& connection,
            ado::CursorType cursorType, ado::LockType lockType) override;
  void Close() override { content_.reset(); }
  bool isOpen() const override { return content_ != nullptr; }
  void Requery() override;
  Ref<ado::Recordset> Clone() override;

  bool BOF() const override { return position_ < 1; }
  bool EOF_() const override { return position_ > RecordCount(); }
  void MoveFirst() override { position_ = 1; }
  void MoveLast() override { position_ = RecordCount(); }
  void MoveNext() override;
  void MovePrevious() override;
  std::int32_t RecordCount() const override;
  std::int32_t AbsolutePosition() const override;
  void setAbsolutePosition(std::int32_t position) override;
  void setFilter(const std::string& filter) override;
  std::string filter() const override { return {}; }

  const std::vector<ado::Field>& fields() const override { return content().fields; }
  Value value(std::string_view field) const override;
  void setValue(std::string_view field, const Value& value) override;
  Value originalValue(std::string_view field) const override { return value(field); }
  std::vector<RowValues> GetRows(std::int32_t rows, std::string_view field) override;

  void AddNew() override;
  void Update() override {}
  void CancelUpdate() override {}
  void Delete() override;
  void UpdateBatch() override {}
  void CancelBatch() override {}
  ado::EditMode editMode() const override { return ado::EditMode::None; }
  bool hasPendingBatch() const override { return false; }

 private:
  struct Content {
    std::vector<ado::Field> fields;
    std::vector<RowValues> rows;
  };

  /// 3704 when it is closed.
  const Content& content() const;
  /// The current row; 3021 when there is none.
  const RowValues& current() const;

  std::shared_ptr<const Content> content_;  ///< shared with the clones
  std::int32_t position_ = 1;               ///< from 1; 0 before the first row
};

}  // namespace kebu::controls
