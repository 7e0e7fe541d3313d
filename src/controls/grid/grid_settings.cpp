#include "controls/grid/grid_settings.h"

#include <sstream>

#include "common/whole_number.h"

namespace kebu::controls {

namespace {

constexpr char entryEnd = ';';
constexpr std::int32_t widestColumn = 4000;

}  // namespace

// An entry is "width COLUMN FIELD NUMBER" or "sort COLUMN FIELD up|down". The field tells whether
// the column is still the same one.
std::string GridSettings::toText(const GridRows& rows) const {
  std::ostringstream text;
  const auto place = [&](std::size_t column) {
    return std::to_string(column) + ' ' + rows.field(column) + ' ';
  };
  for (const auto& [column, width] : widths) {
    if (column < rows.columnCount()) text << "width " << place(column) << width << entryEnd;
  }
  if (sort && sort->column < rows.columnCount()) {
    text << "sort " << place(sort->column) << (sort->isDescending ? "down" : "up") << entryEnd;
  }
  return text.str();
}

GridSettings GridSettings::fromText(const std::string& text, const GridRows& rows) {
  GridSettings settings;
  std::istringstream entries(text);
  for (std::string entry; std::getline(entries, entry, entryEnd);) {
    std::istringstream words(entry);
    std::string kind;
    std::string column;
    std::string field;
    std::string value;
    words >> kind >> column >> field >> value;
    const auto index = static_cast<std::size_t>(wholeNumberIn(column).value_or(-1));
    if (index >= rows.columnCount() || rows.field(index) != field) continue;
    if (kind == "sort" && (value == "up" || value == "down")) {
      settings.sort = SortedBy{index, value == "down"};
    }
    const std::int32_t width = wholeNumberIn(value).value_or(0);
    if (kind == "width" && width > 0 && width <= widestColumn) settings.widths[index] = width;
  }
  return settings;
}

}  // namespace kebu::controls
