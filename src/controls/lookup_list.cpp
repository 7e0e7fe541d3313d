#include "controls/lookup_list.h"

#include "common/convert.h"
#include "controls/control.h"

namespace kebu::controls {

LookupList::LookupList(std::string title, std::vector<std::string> captions,
                       const Ref<ado::Recordset>& rows)
    : title_(std::move(title)), captions_(std::move(captions)) {
  if (!rows->EOF_()) rows_ = rows->GetRows(-1);
  current_ = rows_.empty() ? 0 : 1;
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
