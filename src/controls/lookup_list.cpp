#include "controls/lookup_list.h"

#include "common/convert.h"
#include "controls/control.h"

namespace kebu::controls {

LookupList::LookupList(std::string title, std::vector<std::string> captions,
                       const Ref<ado::Recordset>& rows)
    : title_(std::move(title)), captions_(std::move(captions)) {
  if (!rows->EOF_()) rows_ = rows->GetRows(-1);
}

std::string LookupList::cellText(std::int32_t row, std::size_t column) const {
  return trimRight(toDisplay(rows_.at(static_cast<std::size_t>(row - 1)).at(column)));
}

std::optional<std::int32_t> LookupList::search(const std::string& typed) const {
  for (std::int32_t row = 1; row <= rowCount(); ++row) {
    for (std::size_t column = 0; column < std::min<std::size_t>(captions_.size(), 2); ++column) {
      if (equalsIgnoringCase(cellText(row, column).substr(0, typed.size()), typed)) return row;
    }
  }
  return std::nullopt;
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
