#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ado/connection.h"
#include "common/convert.h"
#include "common/error.h"
#include "common/ref.h"
#include "common/row_values.h"

namespace kebu::ado {

enum class CursorLocation : std::int32_t { Server = 2, Client = 3 };
enum class CursorType : std::int32_t { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType : std::int32_t {
  ReadOnly = 1,
  Pessimistic = 2,
  Optimistic = 3,
  BatchOptimistic = 4
};
/// By which columns a changed row is found again in its table: the client cursor's dynamic
/// property "Update Criteria".
enum class UpdateCriteria : std::int32_t {
  Key = 0,
  AllColumns = 1,
  UpdatedColumns = 2,  ///< the key and the old values of what was changed; ADO's default
  TimeStamp = 3
};
enum class EditMode : std::int32_t { None = 0, InProgress = 1, Add = 2, Delete = 4 };
enum class DataType : std::int32_t {
  SmallInt = 2,
  Integer = 3,
  Boolean = 11,
  UnsignedTinyInt = 17,
  Guid = 72,
  Numeric = 131,
  Char = 129,
  WChar = 130,
  DBTimeStamp = 135,
  VarChar = 200,
  VarWChar = 202
};

struct Field {
  std::string name;
  DataType type = DataType::VarChar;
  std::int32_t definedSize = 0;  ///< characters of a text column, -1 without limit
  std::uint8_t precision = 0;
  std::uint8_t numericScale = 0;
};

/// The position of a field by its name, case aside; fields.size() when there is none.
inline std::size_t indexOf(const std::vector<Field>& fields, std::string_view name) {
  const auto at = std::ranges::find_if(
      fields, [&](const std::string& own) { return equalsIgnoringCase(own, name); }, &Field::name);
  return static_cast<std::size_t>(at - fields.begin());
}

/// The same; RuntimeError 3265 when there is none.
inline std::size_t requireIndex(const std::vector<Field>& fields, std::string_view name) {
  const std::size_t index = indexOf(fields, name);
  if (index < fields.size()) return index;
  throw RuntimeError(3265, "Item cannot be found: " + std::string(name));
}

/// The rows of a statement, one of which is the current one, as ADO has them. Members keep ADO's
/// names and meaning; a wrong use raises RuntimeError with ADO's number (3021 no
/// current record, 3265 no such field, 3704 closed, 3251 not updatable).
/// Field names ignore case. Positions count from 1.
class Recordset {
 public:
  virtual ~Recordset() = default;

  virtual void setCursorLocation(CursorLocation location) = 0;
  /// Before Open. 3265 for a cursor on the server, which has no such property.
  virtual void setUpdateCriteria(UpdateCriteria criteria) = 0;
  /// Runs `source` on `connection` and stands on the first row.
  virtual void Open(const std::string& source, const Ref<Connection>& connection,
                    CursorType cursorType, LockType lockType) = 0;
  virtual void Close() = 0;
  virtual bool isOpen() const = 0;
  /// Runs the statement again. Clones keep the rows that they had.
  virtual void Requery() = 0;
  /// A second cursor with its own position and filter over the same rows; what
  /// one changes the other sees.
  virtual Ref<Recordset> Clone() = 0;

  virtual bool BOF() const = 0;
  virtual bool EOF_() const = 0;  // EOF itself is a macro of <cstdio>
  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  virtual void MoveNext() = 0;
  virtual void MovePrevious() = 0;
  /// Among the rows that pass the filter; -1 for a forward-only cursor.
  virtual std::int32_t RecordCount() const = 0;
  /// 1 to RecordCount among the rows that pass the filter; -1 at neither row.
  virtual std::int32_t AbsolutePosition() const = 0;
  virtual void setAbsolutePosition(std::int32_t position) = 0;
  /// Conditions "FIELD op value" joined by " and "; "" for all rows. Stands on
  /// the first row that passes.
  virtual void setFilter(const std::string& filter) = 0;
  virtual std::string filter() const = 0;

  virtual const std::vector<Field>& fields() const = 0;
  /// The current row's value of a field (with the edit in progress).
  virtual Value value(std::string_view field) const = 0;
  virtual void setValue(std::string_view field, const Value& value) = 0;
  /// The value that the row had in the database when it was read.
  virtual Value originalValue(std::string_view field) const = 0;
  /// Up to `rows` rows from the current one on, in the order of fields(), one
  /// element a row; moves past them. -1 for all that are left. With a field's name, rows
  /// of that value alone; 3265 when there is no such field.
  virtual std::vector<RowValues> GetRows(std::int32_t rows, std::string_view field = {}) = 0;

  /// Begins a new row, which becomes the current one.
  virtual void AddNew() = 0;
  /// Sends the current row (batch lock: only keeps it for UpdateBatch).
  virtual void Update() = 0;
  /// Discards the edit in progress.
  virtual void CancelUpdate() = 0;
  /// Deletes the current row (batch lock: with UpdateBatch).
  virtual void Delete() = 0;
  /// Sends the rows that Update kept.
  virtual void UpdateBatch() = 0;
  /// Discards them.
  virtual void CancelBatch() = 0;
  virtual EditMode editMode() const = 0;
  /// Whether rows wait for UpdateBatch.
  virtual bool hasPendingBatch() const = 0;
};

}  // namespace kebu::ado
