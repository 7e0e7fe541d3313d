#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ado/recordset.h"
#include "common/value.h"
#include "workbench/engine/session.h"

namespace kebu::engine {

using Values = std::vector<Value>;

/// Positions of fields, ascending, each once.
class FieldList {
 public:
  auto begin() const { return fields_.begin(); }
  auto end() const { return fields_.end(); }
  void add(std::size_t field) {
    const auto place = std::lower_bound(fields_.begin(), fields_.end(), field);
    if (place == fields_.end() || *place != field) fields_.insert(place, field);
  }
  void add(const FieldList& others) {
    if (fields_.empty()) {
      fields_ = others.fields_;
    } else {
      for (const std::size_t field : others) add(field);
    }
  }
  void clear() { fields_.clear(); }
  bool empty() const { return fields_.empty(); }
  std::size_t size() const { return fields_.size(); }

 private:
  std::vector<std::size_t> fields_;
};

/// A row in memory, and what of it waits to be sent.
struct Row {
  enum class Pending { Nothing, Insert, Update, Delete };

  Values values;
  Values original;      ///< of a changed row: as the database has it
  std::int64_t id = 0;  ///< the row's id in its table
  Pending pending = Pending::Nothing;
  FieldList changed;  ///< fields that differ from `original`
  bool gone = false;  ///< deleted, or given up before it was sent

  /// As the database has it, when it has it.
  const Values& stored() const { return pending == Pending::Update ? original : values; }
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
