#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "ado/recordset.h"

namespace kebu::controls {

/// Reads rows of a recordset by position, in blocks, through a clone with a
/// position of its own. The last blocks read are kept.
class RowCache {
 public:
  /// Reads from these rows; null or closed ones count as none.
  void attach(const Ref<ado::Recordset>& rows);
  /// Forgets the block that was read.
  void invalidate() { blocks_.clear(); }
  /// Whether rows are asked for in another order than theirs. They are then read one by one.
  void setScattered(bool scattered);

  std::int32_t rowCount() const { return reader_ ? reader_->RecordCount() : 0; }
  /// The values of row `position`, from 1, in the order of the fields. Valid until
  /// the next call; RuntimeError 3021 when there is no such row.
  const RowValues& row(std::int32_t position);
  /// A field's values in up to `count` rows from `first` on; empty values for an unknown field.
  std::vector<Value> column(std::string_view field, std::int32_t first, std::int32_t count);

 private:
  Ref<ado::Recordset> reader_;
  std::int32_t blockRows_ = usualBlock;
  std::map<std::int32_t, std::vector<RowValues>> blocks_;  ///< by their first row

  static constexpr std::int32_t usualBlock = 128;
  static constexpr std::size_t keptBlocks = 64;
};

}  // namespace kebu::controls
