#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ado/recordset.h"
#include "common/value.h"
#include "workbench/engine/execution/session.h"

namespace kebu::workbench {

using Values = std::vector<Value>;

/// Values of some fields of a row, in the order of the fields.
class FieldValues {
 public:
  struct Entry {
    std::size_t field;
    Value value;
  };

  using Place = std::vector<Entry>::const_iterator;
  Place begin() const { return entries_.begin(); }
  Place end() const { return entries_.end(); }
  bool empty() const { return entries_.empty(); }
  std::size_t size() const { return entries_.size(); }
  void clear() { entries_.clear(); }
  void reserve(std::size_t count) { entries_.reserve(count); }
  /// The field's value, or null.
  const Value* find(std::size_t field) const {
    const auto place = placeOf(field);
    return isAt(place, field) ? &place->value : nullptr;
  }
  /// Replaces the field's value, or adds it.
  void set(std::size_t field, Value value) {
    const auto place = placeOf(field);
    if (isAt(place, field)) {
      entries_[static_cast<std::size_t>(place - begin())].value = std::move(value);
    } else {
      entries_.insert(place, {field, std::move(value)});
    }
  }
  /// Adds the field's value, unless it has one.
  void keep(std::size_t field, Value value) {
    const auto place = placeOf(field);
    if (!isAt(place, field)) entries_.insert(place, {field, std::move(value)});
  }

 private:
  /// The field's place, or where it would be inserted.
  Place placeOf(std::size_t field) const {
    return std::lower_bound(begin(), end(), field, [](const Entry& entry, std::size_t wanted) {
      return entry.field < wanted;
    });
  }
  bool isAt(Place place, std::size_t field) const {
    return place != end() && place->field == field;
  }

  std::vector<Entry> entries_;
};

/// A row in memory, with the changes that are still to be sent to the database.
struct Row {
  enum class Pending { Nothing, Insert, Update, Delete };

  Values values;
  FieldValues before;  ///< the changed fields' values in the database
  Pending pending = Pending::Nothing;
  bool gone = false;  ///< deleted, or cancelled before it was inserted

  /// The field's value in the database.
  const Value& stored(std::size_t field) const {
    const Value* const old = before.find(field);
    return old ? *old : values[field];
  }
  void change(const FieldValues& changes) {
    if (before.empty()) before.reserve(changes.size());
    for (const auto& [field, value] : changes) {
      before.keep(field, std::exchange(values[field], value));
    }
    if (pending == Pending::Nothing) pending = Pending::Update;
  }
  /// Forgets the changes: they were sent or undone.
  void settle() {
    before.clear();
    pending = Pending::Nothing;
  }
  /// Undoes the changes.
  void restore() {
    for (const auto& [field, value] : before) values[field] = value;
    settle();
  }
};

/// The rows of a recordset and its clones. Rows that are gone keep their place, so that the
/// positions of all cursors stay valid.
struct RowSet {
  std::vector<ado::Field> fields;
  std::vector<engine::SqlType> types;
  std::string table;                 ///< the base table; "" when the rows cannot be updated
  std::vector<std::string> columns;  ///< the base column of every field; "" for none
  std::vector<Row> rows;
  bool anyDeleted = false;  ///< some row is gone or will be deleted

  explicit RowSet(engine::ResultSet result);
  std::size_t indexOf(std::string_view field) const;
};

}  // namespace kebu::workbench
