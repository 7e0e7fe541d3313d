#include "controls/row_cache.h"

#include <algorithm>

namespace kebu::controls {

void RowCache::attach(const Ref<ado::Recordset>& rows) {
  invalidate();
  reader_ = rows && rows->isOpen() ? rows->Clone() : Ref<ado::Recordset>();
}

void RowCache::setScattered(bool scattered) {
  const std::int32_t rows = scattered ? 1 : usualBlock;
  if (rows == blockRows_) return;
  blockRows_ = rows;
  invalidate();
}

const RowValues& RowCache::row(std::int32_t position) {
  const std::int32_t first = (position - 1) / blockRows_ * blockRows_ + 1;
  auto block = blocks_.find(first);
  if (block == blocks_.end()) {
    if (blocks_.size() >= keptBlocks) invalidate();
    reader_->setAbsolutePosition(first);
    block = blocks_.emplace(first, reader_->GetRows(blockRows_)).first;
  }
  const auto index = static_cast<std::size_t>(position - first);
  if (index >= block->second.size()) throw RuntimeError(3021, "Either BOF or EOF is True.");
  return block->second[index];
}

std::vector<Value> RowCache::column(std::string_view field, std::int32_t first,
                                    std::int32_t count) {
  std::vector<Value> values;
  if (first < 1 || first > rowCount() || count < 1) return values;
  if (ado::indexOf(reader_->fields(), field) == reader_->fields().size()) {
    values.resize(static_cast<std::size_t>(std::min(count, rowCount() - first + 1)));
    return values;
  }
  reader_->setAbsolutePosition(first);
  for (const RowValues& row : reader_->GetRows(count, field)) values.push_back(row.front());
  return values;
}

}  // namespace kebu::controls
