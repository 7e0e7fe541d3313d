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

namespace kebu::engine {

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
  /// Makes room for so many.
  void reserve(std::size_t count) { entries_.reserve(count); }
  /// The field's value; nothing when it is not among them.
  const Value* find(std::size_t field) const {
    const auto place = placeOf(field);
    return isAt(place, field) ? &place->value : nullptr;
  }
  /// In place of the one before, if any.
  void set(std::size_t field, Value value) {
    const auto place = placeOf(field);
    if (isAt(place, field)) {
      entries_[static_cast<std::size_t>(place - begin())].value = std::move(value);
    } else {
      entries_.insert(place, {field, std::move(value)});
    }
  }
  /// Unless there is one before.
  void keep(std::size_t field, Value value) {
    const auto place = placeOf(field);
    if (!isAt(place, field)) entries_.insert(place, {field, std::move(value)});
  }

 private:
  /// Where the field stands, or would stand.
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

/// A row in memory, and what of it waits to be sent.
struct Row {
  enum class Pending { Nothing, Insert, Update, Delete };

  Values values;
  FieldValues before;   ///< the fields that were changed: as the database has them
  std::int64_t id = 0;  ///< the row's id in its table
  Pending pending = Pending::Nothing;
  bool gone = false;  ///< deleted, or given up before it was sent

  /// As the database has it.
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
  /// What waited is sent, or given up.
  void settle() {
    before.clear();
    pending = Pending::Nothing;
  }
  /// Gives the changes up.
  void restore() {
    for (const auto& [field, value] : before) values[field] = value;
    settle();
  }
};

/// The rows of a recordset, which its clones share. Rows that are gone keep their
/// place, so that the positions of all cursors stay.
struct RowSet {
  std::vector<ado::Field> fields;
  std::vector<SqlType> types;
  std::string table;                 ///< "" when the rows cannot be written back
  std::vector<std::string> columns;  ///< of the table, behind the fields
  std::vector<Row> rows;
  bool anyDeleted = false;  ///< some row is gone, or on its way

  explicit RowSet(ResultSet result);
  std::size_t indexOf(std::string_view field) const;
};

}  // namespace kebu::engine
