#include "controls/grid/delimited_text.h"

#include <algorithm>

#include "common/convert.h"

namespace kebu::controls {

namespace {

constexpr std::size_t cellsOfASlice = 16384;

}  // namespace

std::string quotedCell(std::string_view text, char separator) {
  const char special[] = {separator, '"', '\r', '\n', '\0'};
  if (text.find_first_of(special) == std::string_view::npos) return std::string(text);
  return '"' + replaceAll(std::string(text), "\"", "\"\"") + '"';
}

RowsAsText::RowsAsText(GridRows& source, std::vector<std::int32_t> rows, const TextFormat& format,
                       std::function<void(std::string_view)> write)
    : source_(source), rows_(std::move(rows)), format_(format), write_(std::move(write)) {
  for (std::size_t i = 0; i < source.columnCount(); ++i) {
    if (source.isShown(i)) columns_.push_back(i);
  }
}

bool RowsAsText::work() {
  std::string piece;
  const auto line = [&](const auto& cellOf) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (i > 0) piece += format_.separator;
      piece += quotedCell(cellOf(columns_[i]), format_.separator);
    }
    piece += "\r\n";
  };
  if (!hasHeads_) {
    piece = format_.start;
    line([&](std::size_t column) { return source_.head(column); });
    hasHeads_ = true;
  }
  const std::size_t count = std::max<std::size_t>(cellsOfASlice / (columns_.size() + 1), 1);
  for (std::size_t i = 0; i < count && written_ < rows_.size(); ++i) {
    const std::int32_t row = rows_[written_++];
    line([&](std::size_t column) { return source_.writtenText(row, column); });
  }
  write_(piece);
  return written_ == rows_.size();
}

}  // namespace kebu::controls
