#include "controls/row_cache.h"

namespace kebu::controls {

void RowCache::attach(const Ref<ado::Recordset>& rows) {
  invalidate();
  reader_ = rows && rows->isOpen() ? rows->Clone() : Ref<ado::Recordset>();
}

const RowValues& RowCache::row(std::int32_t position) {
  const auto isHeld = [&] {
    return position >= first_ && position < first_ + static_cast<std::int32_t>(block_.size());
  };
  if (!isHeld()) {
    first_ = (position - 1) / blockRows * blockRows + 1;
    reader_->setAbsolutePosition(first_);
    block_ = reader_->GetRows(blockRows);
  }
  if (!isHeld()) throw RuntimeError(3021, "Either BOF or EOF is True.");
  return block_[static_cast<std::size_t>(position - first_)];
}

}  // namespace kebu::controls
