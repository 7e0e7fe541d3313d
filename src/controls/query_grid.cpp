#include "controls/query_grid.h"

#include <algorithm>

#include "common/convert.h"
#include "common/nulls.h"
#include "common/platform.h"
#include "controls/row_editing.h"
#include "controls/typed_value.h"

namespace kebu::controls {

namespace {

/// The entry with that code, or the end of the list.
auto itemOf(const QueryGrid::Items& items, const Value& code) {
  return std::ranges::find_if(
      items, [&](const auto& item) { return equalAsVariants(Value(item.first), code); });
}

}  // namespace

QueryGrid::QueryGrid(std::string name, ControlHost& host)
    : OfKind(std::move(name)),
      host_(host),
      tools_(*this, Name(), host.settingStore(),
             [&host](const std::string& text) { return host.translated(text); }) {
  tools_.changed.on([this] {
    cache_.setScattered(tools_.isReordered());
    changed.raise();
  });
}

void QueryGrid::clearColumns() {
  columns_.clear();
  changed.raise();
}

void QueryGrid::addColumn(const GridColumn& definition, const Translator& translator) {
  const auto translated = [&](std::string_view text) {
    return text.empty() ? std::string() : translator(std::string(text));
  };
  Column column{std::string(definition.field),
                translated(definition.caption),
                definition.width,
                definition.kind,
                {},
                std::string(definition.lookup),

                definition.refusesAll};
  for (const ValueListItem& item : definition.items) {
    column.items.emplace_back(item.code, translated(item.caption));
  }
  columns_.push_back(std::move(column));
  changed.raise();
}

void QueryGrid::setDataSource(const Ref<ado::Recordset>& rows) {
  rows_ = rows;
  shownInstead_.clear();
  tickedRows_.clear();
  cache_.attach(rows);
  formatDescriptions();
  tools_.rowsChanged();
  cache_.setScattered(tools_.isReordered());
  changed.raise();
  RowChanged.raise();
}

void QueryGrid::tell(const std::string& text) {
  host_.message(text, msgbox::exclamation);
}

void QueryGrid::requery() {
  // The grid may be painted while the statement runs, and must not read the recordset then.
  const Ref<ado::Recordset> rows = rows_;
  rows_.reset();
  cache_.attach(nullptr);
  try {
    rows->Requery();
  } catch (...) {
    setDataSource(rows);
    throw;
  }
  setDataSource(rows);
}

void QueryGrid::refresh() {
  cache_.invalidate();
  tickedRows_.clear();
  formatDescriptions();
  tools_.cellsChanged();
  changed.raise();
}

void QueryGrid::formatDescriptions() {
  descriptions_.clear();
  unknown_.clear();
  const auto isDescription = [](const Column& c) { return c.kind == ColumnKind::Description; };
  if (std::ranges::none_of(columns_, isDescription)) return;
  for (std::int32_t row = 1; row <= rowCount(); ++row) {
    std::vector<std::string> texts(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (isDescription(columns_[i])) DataFormatEXT.raise(row, columns_[i].field, texts[i]);
    }
    descriptions_.push_back(std::move(texts));
  }
}

void QueryGrid::write(const std::vector<std::pair<std::string, Value>>& cells) {
  const std::int32_t row = currentRow();
  auto written = cells;
  // What the user sees of the row is stored with what is edited in it.
  for (const auto& [place, value] : shownInstead_) {
    const bool isEdited = std::ranges::any_of(
        cells, [&, &seen = place](const auto& cell) { return cell.first == seen.second; });
    if (place.first == row && !isEdited) written.emplace_back(place.second, value);
  }
  writeRow(*rows_, written);
  std::erase_if(shownInstead_, [&](const auto& shown) { return shown.first.first == row; });
  cache_.invalidate();
  tickedRows_.clear();
}

void QueryGrid::translate(const Translator& translator) {
  Control::translate(translator);
  unknownText_ = translator(unknownText_);
}

void QueryGrid::showInstead(std::int32_t row, const std::string& field, const Value& value) {
  shownInstead_[{row, field}] = value;
  tickedRows_.clear();
  changed.raise();
}

std::int32_t QueryGrid::tickedRows(const std::string& field) {
  const auto known = tickedRows_.find(field);
  if (known != tickedRows_.end()) return known->second;
  std::int32_t ticked = 0;
  ignoringErrors([&] {
    // Counted by the recordset, which has all rows in memory.
    const Ref<ado::Recordset> counter = rows_->Clone();
    counter->setFilter(field + " = 1");
    ticked = counter->RecordCount();
    for (const auto& [place, value] : shownInstead_) {
      if (place.second == field && !toBoolean(CDecN(value))) --ticked;
    }
  });
  return tickedRows_[field] = std::max(ticked, 0);
}

TickState QueryGrid::tickState(const std::string& field) {
  const std::int32_t ticked = tickedRows(field);
  if (ticked == 0) return TickState::None;
  return ticked < rowCount() ? TickState::Some : TickState::All;
}

std::int32_t QueryGrid::currentRow() const {
  return rows_ && rows_->isOpen() ? std::max(rows_->AbsolutePosition(), 0) : 0;
}

Value QueryGrid::cell(std::int32_t row, std::string_view field) {
  const auto instead = shownInstead_.find({row, std::string(field)});
  if (instead != shownInstead_.end()) return instead->second;
  const std::size_t index = ado::indexOf(rows_->fields(), field);
  const RowValues& values = cache_.row(row);
  return index < values.size() ? values[index] : Value();
}

std::string QueryGrid::cellText(std::int32_t row, std::size_t index) {
  const Column& column = columns_.at(index);
  if (column.kind == ColumnKind::Description) {
    return descriptions_.at(static_cast<std::size_t>(row - 1)).at(index);
  }
  const Value value = cell(row, column.field);
  if (column.kind == ColumnKind::Check) return toBoolean(CDecN(value)) ? "1" : "0";
  if (value.isEmpty()) return "";  // a column without a field
  const Items& items = itemsOf(row, column);
  const auto item = itemOf(items, value);
  return item != items.end() ? item->second : trimRight(toDisplay(value));
}

std::string QueryGrid::head(std::size_t column) const {
  const std::string& own = columns_.at(column).caption;
  // A code shares the caption of its description.
  const bool isOpenCode = own.empty() && column + 1 < columns_.size();
  return isOpenCode ? columns_[column + 1].caption : own;
}

std::vector<Value> QueryGrid::cells(std::size_t column, std::int32_t first, std::int32_t count) {
  const Column& read = columns_.at(column);
  std::vector<Value> cells;
  if (read.kind == ColumnKind::Description) {
    for (std::int32_t row = first; row < first + count && row <= rowCount(); ++row) {
      cells.emplace_back(cellText(row, column));
    }
    return cells;
  }
  cells = cache_.column(read.field, first, count);
  for (const auto& [place, value] : shownInstead_) {
    const auto index = static_cast<std::size_t>(place.first - first);
    if (place.second == read.field && index < cells.size()) cells[index] = value;
  }
  std::int32_t row = first;
  for (Value& cell : cells) {
    if (read.kind == ColumnKind::Check) {
      cell = Value(static_cast<std::int16_t>(toBoolean(CDecN(cell)) ? 1 : 0));
    } else if (read.kind == ColumnKind::ValueList) {
      const Items& items = itemsOf(row, read);
      const auto item = itemOf(items, cell);
      if (item != items.end()) cell = Value(item->second);
    }
    ++row;
  }
  return cells;
}

std::string QueryGrid::writtenText(std::int32_t row, std::size_t column) {
  std::string shown = cellText(row, column);
  if (columns_.at(column).kind != ColumnKind::Check) return shown;
  return host_.translated(shown == "1" ? "Sì" : "No");
}

const QueryGrid::Items& QueryGrid::itemsOf(std::int32_t row, const Column& column) {
  const bool hasCell = row >= 1 && row <= rowCount();
  if (column.kind != ColumnKind::ValueList || !hasCell) return column.items;
  std::string lender;
  GetCellRenderColumn.raise(row, column.field, lender);
  const Column* const found = lender.empty() ? nullptr : findColumn(lender);
  return found ? found->items : column.items;
}

bool QueryGrid::isLocked(std::int32_t row, const Column& column) {
  return !acceptsChanges() || !isChangeable(column.kind) || column.field == keyField_ ||
         (cellLocked && cellLocked(row, column.field));
}

Value QueryGrid::rowState(std::int32_t row) {
  if (rowStateField_.empty()) return Null{};
  return rowStateOf ? rowStateOf(row) : cell(row, rowStateField_);
}

const QueryGrid::Column* QueryGrid::findColumn(std::string_view field) const {
  const auto column = std::ranges::find(columns_, field, &Column::field);
  return column == columns_.end() ? nullptr : &*column;
}

std::string QueryGrid::captionOf(std::string_view field) const {
  const auto column = std::ranges::find(columns_, field, &Column::field);
  return column == columns_.end() ? "" : head(static_cast<std::size_t>(column - columns_.begin()));
}

const QueryGrid::Column& QueryGrid::requireCell(std::int32_t row, const std::string& field) {
  selectRow(row);
  const Column* const column = findColumn(field);
  if (!column) throw GestureRefused(Name() + " has no column " + field);
  return *column;
}

void QueryGrid::selectRow(std::int32_t row) {
  requireReachable();
  if (row < 1 || row > rowCount()) {
    throw GestureRefused(Name() + " has no row " + std::to_string(row));
  }
  if (row == currentRow()) return;
  rows_->setAbsolutePosition(row);
  RowChanged.raise();
  changed.raise();
}

bool QueryGrid::store(const std::string& field, const Value& value) {
  return trap(host_, Name(), [&](Steps& step) {
    bool stored = true;
    step([&] {
      const auto& fields = rows_->fields();
      const ado::Field& target = fields[ado::requireIndex(fields, field)];
      stored = !isLossy(host_, target, value);
      try {
        if (stored) write({{field, value}});
      } catch (const RuntimeError& error) {
        if (!error.isValueError()) throw;
        stored = false;
      }
      if (!stored) tellRefused(host_, captionOf(field), target, value);
    });
    return stored;
  });
}

void QueryGrid::commit(const std::string& field, const Value& value) {
  if (store(field, value)) OnEdited.raise(field);
  refresh();
}

void QueryGrid::edit(std::int32_t row, const std::string& field, const Value& value) {
  const Gesture gesture(&host_);
  requireChangesAccepted();
  const Column& column = requireCell(row, field);
  const bool fixed =
      !isChangeable(column.kind) || column.kind == ColumnKind::Check || column.field == keyField_;
  if (fixed) throw GestureRefused(field + " of " + Name() + " is not edited by typing");
  if (column.kind == ColumnKind::ValueList && !value.isNull()) {
    const Items& items = itemsOf(row, column);
    if (itemOf(items, value) == items.end()) {
      throw GestureRefused(field + " of " + Name() + " has no entry \"" + toDisplay(value) + "\"");
    }
  }
  bool cancel = false;
  OnEditing.raise(field, cancel);
  if (cancel) return;
  if (isLocked(row, column)) throw GestureRefused(field + " of " + Name() + " is locked there");
  commit(field, value);
}

void QueryGrid::tickCell(std::int32_t row, const std::string& field) {
  const Gesture gesture(&host_);
  requireChangesAccepted();
  if (requireCell(row, field).kind != ColumnKind::Check) {
    throw GestureRefused(field + " of " + Name() + " is not a check column");
  }
  bool cancel = false;
  SelectionBoxClick.raise(field, cancel);
  if (cancel) return;
  const auto instead = shownInstead_.find({row, field});
  const Value before = instead != shownInstead_.end() ? instead->second : rows_->value(field);
  const bool ticked = toBoolean(CDecN(before));
  commit(field, static_cast<std::int16_t>(ticked ? 0 : 1));
}

void QueryGrid::tickAll(const std::string& field, bool on) {
  const Gesture gesture(&host_);
  requireChangesAccepted();
  if (rowCount() == 0) return;
  if (requireCell(std::max(currentRow(), 1), field).kind != ColumnKind::Check) {
    throw GestureRefused(field + " of " + Name() + " is not a check column");
  }
  bool cancel = false;
  SelectAllClickEXT.raise(field, on, cancel);
  if (cancel) return;
  const std::int32_t current = currentRow();
  const Value flag(static_cast<std::int16_t>(on ? 1 : 0));
  for (std::int32_t row = 1; row <= rowCount(); ++row) {
    rows_->setAbsolutePosition(row);
    const bool isShownAsStored = !shownInstead_.contains({row, field});
    if (isShownAsStored && equalAsVariants(CDecN(rows_->value(field)), flag)) continue;
    if (!store(field, flag)) break;
  }
  rows_->setAbsolutePosition(current);
  refresh();
}

void QueryGrid::lookup(std::int32_t row, const std::string& field) {
  const Gesture gesture(&host_);
  requireChangesAccepted();
  if (requireCell(row, field).kind != ColumnKind::Lookup) {
    throw GestureRefused(field + " of " + Name() + " has no look-up");
  }
  bool cancel = false;
  OnEditing.raise(field, cancel);
  if (cancel) return;
  Value code;
  StartLookup.raise(field, code);
  if (!code.isEmpty()) commit(field, code);
}

void QueryGrid::details(std::int32_t row) {
  selectRow(row);
  if (!showDetails) throw GestureRefused("the rows of " + Name() + " have no details");
  showDetails();
}

void QueryGrid::choose(std::int32_t row, std::string_view entry) {
  selectRow(row);
  const Menu menu = rowMenu ? rowMenu(row) : Menu();
  const auto at = std::ranges::find_if(menu, [&](const MenuEntry& each) {
    return std::string_view(each.caption).substr(0, each.caption.find('\t')) == entry;
  });
  if (at == menu.end()) {
    throw GestureRefused("the menu of " + Name() + " has no \"" + std::string(entry) + "\"");
  }
  if (!at->act) throw GestureRefused("\"" + std::string(entry) + "\" cannot be chosen now");
  at->act();
}

}  // namespace kebu::controls
