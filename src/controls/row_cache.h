#pragma once

#include <cstdint>
#include <vector>

#include "ado/recordset.h"

namespace kebu::controls {

/// Reads rows of a recordset by position, a block at a time, through a cursor
/// of its own: what is looked at costs one block, whatever the number of rows.
class RowCache {
 public:
  void attach(const Ref<ado::Recordset>& rows);
  /// Forgets what was read; the next look reads anew.
  void invalidate() { block_.clear(); }

  std::int32_t rowCount() const;
  /// The values of row `position`, from 1, in the order of the fields.
  const RowValues& row(std::int32_t position);

 private:
  static constexpr std::int32_t blockRows = 128;

  Ref<ado::Recordset> reader_;
  std::int32_t first_ = 0;
  std::vector<RowValues> block_;
};

}  // namespace kebu::controls
