#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "common/value.h"

namespace kebu::controls {

/// The rows of a grid or list, as its tools read them: in the order in which they were read from
/// the database, rows from 1, columns from 0. Errors of the recordset are raised.
class GridRows {
 public:
  virtual ~GridRows() = default;

  virtual std::int32_t rowCount() const = 0;
  virtual std::size_t columnCount() const = 0;
  /// The field of a column.
  virtual std::string field(std::size_t column) const = 0;
  /// Whether the user sees the column.
  virtual bool isShown(std::size_t column) const = 0;
  virtual std::string head(std::size_t column) const = 0;
  /// Up to `count` cells of a column from row `first` on. Codes that are shown by a caption are
  /// that caption; numbers and dates are not texts, so that they can be compared.
  virtual std::vector<Value> cells(std::size_t column, std::int32_t first, std::int32_t count) = 0;
  /// A cell as it is written for a spreadsheet.
  virtual std::string writtenText(std::int32_t row, std::size_t column) = 0;
  /// 0 when there is no current row.
  virtual std::int32_t currentRow() const = 0;
  /// Makes a row the current one, as the user's gesture.
  virtual void selectRow(std::int32_t row) = 0;
};

}  // namespace kebu::controls
