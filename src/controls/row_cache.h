#pragma once

#include <cstdint>
#include <vector>

#include "ado/recordset.h"

namespace kebu::controls {

/// Reads rows of a recordset by position, in blocks, through a clone with a
/// position of its own. The last block read is kept.
class RowCache {
 public:
  /// Reads from these rows; null or closed ones count as none.
  void attach(const Ref<ado::Recordset>& rows);
  /// Forgets the block that was read.
  void invalidate() { block_.clear(); }

  std::int32_t rowCount() const { return reader_ ? reader_->RecordCount() : 0; }
  /// The values of row `position`, from 1, in the order of the fields. Valid until
  /// the next call; RuntimeError 3021 when there is no such row.
  const RowValues& row(std::int32_t position);

 private:
  static constexpr std::int32_t blockRows = 128;

  Ref<ado::Recordset> reader_;
  std::int32_t first_ = 0;
  std::vector<RowValues> block_;
};

}  // namespace kebu::controls
