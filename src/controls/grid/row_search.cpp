#include "controls/grid/row_search.h"

#include <algorithm>

#include "common/convert.h"
#include "common/text_folding.h"

namespace kebu::controls {

RowSearch::RowSearch(GridRows& rows, const std::string& text, std::optional<std::size_t> column)
    : rows_(rows),
      wanted_(foldedText(text)),
      total_(rows.rowCount()),
      found_(static_cast<std::size_t>(rows.rowCount()) + 1) {
  for (std::size_t i = 0; i < rows.columnCount(); ++i) {
    if (column ? i == *column : rows.isShown(i)) columns_.push_back(i);
  }
}

bool RowSearch::work() {
  if (wanted_.empty()) {
    read_ = total_;
    return true;
  }
  // A slice reads as many cells whatever the number of columns.
  const auto columns = std::max(static_cast<std::int32_t>(columns_.size()), 1);
  const std::int32_t count = std::min(std::max(rowsOfASlice / columns, 1), total_ - read_);
  for (const std::size_t column : columns_) {
    if (count == 0) break;
    auto at = static_cast<std::size_t>(read_) + 1;
    for (const Value& cell : rows_.cells(column, read_ + 1, count)) {
      const bool isKnown = at >= found_.size() || found_[at];
      if (!isKnown) {
        const std::string text =
            foldedText(cell.isText() ? cell.as<std::string>() : toDisplay(cell));
        found_[at] = text.find(wanted_) != std::string::npos;
        if (found_[at]) ++foundRows_;
      }
      ++at;
    }
  }
  read_ += count;
  return read_ >= total_;
}

}  // namespace kebu::controls
