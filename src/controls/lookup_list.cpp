#include "controls/lookup_list.h"

#include <algorithm>

#include "common/convert.h"
#include "controls/control.h"

namespace kebu::controls {

LookupList::LookupList(std::string title, std::vector<std::string> captions,
                       const Ref<ado::Recordset>& rows, SettingStore* store, Translator translator)
    : LookupList(std::move(title), std::move(captions), allOf(rows), store, std::move(translator)) {
}

LookupList::LookupList(std::string title, std::vector<std::string> captions,
                       std::vector<RowValues> rows, SettingStore* store, Translator translator)
    : title_(std::move(title)),
      captions_(std::move(captions)),
      rows_(std::move(rows)),
      current_(rows_.empty() ? 0 : 1),
      tools_(shownRows_, title_, store, std::move(translator)) {
  search("");
}

std::vector<RowValues> LookupList::allOf(const Ref<ado::Recordset>& rows) {
  return rows->EOF_() ? std::vector<RowValues>() : rows->GetRows(-1);
}

std::string LookupList::cellText(std::int32_t row, std::size_t column) const {
  return trimRight(toDisplay(rows_.at(static_cast<std::size_t>(row - 1)).at(column)));
}

std::vector<std::int32_t> LookupList::matching(const std::string& typed) const {
  const std::string wanted = toUpperAscii(typed);
  std::vector<std::int32_t> rows;
  for (std::int32_t row = 1; row <= rowCount(); ++row) {
    bool matches = wanted.empty();
    for (std::size_t column = 0; column < captions_.size() && !matches; ++column) {
      matches = toUpperAscii(cellText(row, column)).find(wanted) != std::string::npos;
    }
    if (matches) rows.push_back(row);
  }
  return rows;
}

void LookupList::setCurrent(const std::string& code) {
  for (std::int32_t row = 1; row <= rowCount() && !code.empty(); ++row) {
    if (equalsIgnoringCase(cellText(row, 0), code)) {
      current_ = row;
      return;
    }
  }
}

void LookupList::search(const std::string& typed) {
  shown_ = matching(typed);
  tools_.rowsChanged();
  tools_.finish();  // such a list is short
  const bool isShown = std::ranges::find(shown_, current_) != shown_.end();
  if (!isShown) current_ = shown_.empty() ? 0 : rowAt(1);
}

std::int32_t LookupList::rowAt(std::int32_t place) const {
  return shown_.at(static_cast<std::size_t>(tools_.rowAt(place)) - 1);
}

std::int32_t LookupList::currentPlace() const {
  return tools_.placeOf(shownRows_.currentRow());
}

std::vector<Value> LookupList::ShownRows::cells(std::size_t column, std::int32_t first,
                                                std::int32_t count) {
  std::vector<Value> cells;
  for (std::int32_t row = first; row < first + count && row <= rowCount(); ++row) {
    const auto listRow = static_cast<std::size_t>(list_.shown_.at(index(row))) - 1;
    cells.push_back(list_.rows_.at(listRow).at(column));
  }
  return cells;
}

std::string LookupList::ShownRows::writtenText(std::int32_t row, std::size_t column) {
  return list_.cellText(list_.shown_.at(index(row)), column);
}

std::int32_t LookupList::ShownRows::currentRow() const {
  const auto at = std::ranges::find(list_.shown_, list_.current_);
  return at == list_.shown_.end() ? 0 : static_cast<std::int32_t>(at - list_.shown_.begin()) + 1;
}

void LookupList::choose(std::int32_t row) {
  if (row < 1 || row > rowCount()) {
    throw GestureRefused("\"" + title_ + "\" has no row " + std::to_string(row));
  }
  chosen_ = row;
}

std::optional<Value> LookupList::chosen() const {
  if (chosen_ == 0) return std::nullopt;
  return rows_[static_cast<std::size_t>(chosen_ - 1)].front();
}

}  // namespace kebu::controls
