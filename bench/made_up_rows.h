#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ado/recordset.h"

namespace kebu::bench {

/// A client recordset of any number of rows, which are made up as they are read; only edits are
/// kept.
class MadeUpRows : public ado::Recordset, public std::enable_shared_from_this<MadeUpRows> {
 public:
  explicit MadeUpRows(std::int32_t count) : count_(count), position_(count > 0 ? 1 : -1) {}

  void setCursorLocation(ado::CursorLocation) override {}
  void setUpdateCriteria(ado::UpdateCriteria) override {}
  void Open(const std::string&, const Ref<ado::Connection>&, ado::CursorType,
            ado::LockType) override {}
  void Close() override {}
  bool isOpen() const override { return true; }
  void Requery() override {}
  Ref<ado::Recordset> Clone() override {
    auto copy = std::make_shared<MadeUpRows>(count_);
    copy->edits_ = edits_;
    return Ref<ado::Recordset>(std::shared_ptr<ado::Recordset>(copy));
  }
  bool BOF() const override { return count_ == 0; }
  bool EOF_() const override { return position_ < 1 || position_ > count_; }
  void MoveFirst() override { position_ = 1; }
  void MoveLast() override { position_ = count_; }
  void MoveNext() override { ++position_; }
  void MovePrevious() override { --position_; }
  std::int32_t RecordCount() const override { return count_; }
  std::int32_t AbsolutePosition() const override { return position_; }
  void setAbsolutePosition(std::int32_t position) override { position_ = position; }
  void setFilter(const std::string&) override {}
  std::string filter() const override { return {}; }
  const std::vector<ado::Field>& fields() const override {
    static const std::vector<ado::Field> all{{"CODE"},     {"DESCR"}, {"ACTIVE"}, {"KIND"},
                                             {"QUANTITY"}, {"CODE2"}, {"STATO"}};
    return all;
  }
  Value value(std::string_view field) const override {
    return valueAt(position_, ado::indexOf(fields(), field));
  }
  void setValue(std::string_view field, const Value& value) override {
    (*edits_)[{position_, ado::indexOf(fields(), field)}] = value;
  }
  Value originalValue(std::string_view field) const override { return value(field); }
  std::vector<RowValues> GetRows(std::int32_t rows, std::string_view field) override {
    const std::size_t only = ado::indexOf(fields(), field);
    std::vector<RowValues> read;
    const std::int32_t last = rows < 0 ? count_ : std::min(position_ + rows - 1, count_);
    for (; position_ <= last; ++position_) {
      std::vector<Value> row;
      for (std::size_t i = 0; i < fields().size(); ++i) {
        if (field.empty() || i == only) row.push_back(valueAt(position_, i));
      }
      read.emplace_back(std::move(row));
    }
    return read;
  }
  void AddNew() override {}
  void Update() override {}
  void CancelUpdate() override {}
  void Delete() override {}
  void UpdateBatch() override {}
  void CancelBatch() override {}
  ado::EditMode editMode() const override { return ado::EditMode::None; }
  bool hasPendingBatch() const override { return false; }

 private:
  Value valueAt(std::int32_t row, std::size_t field) const {
    const auto edited = edits_->find({row, field});
    if (edited != edits_->end()) return edited->second;
    switch (field) {
      case 0:
        return "ART" + std::to_string(100000 + row);
      case 1:
        return "Articolo di prova numero " + std::to_string(row);
      case 2:
        return static_cast<std::int16_t>(row % 3 == 0 ? 1 : 0);
      case 3:
        return row % 4;
      case 4:
        return row % 50;
      case 5:
        return row % 2 ? Value(Null{}) : Value("00" + std::to_string(row % 7));
      default:
        return row % 5 == 0 ? 2 : 1;
    }
  }

  std::int32_t count_;
  std::int32_t position_;
  std::shared_ptr<std::map<std::pair<std::int32_t, std::size_t>, Value>> edits_ =
      std::make_shared<std::map<std::pair<std::int32_t, std::size_t>, Value>>();
};

}  // namespace kebu::bench
