#include "controls/query_grid.h"

#include <algorithm>

#include "common/convert.h"
#include "common/nulls.h"
#include "common/platform.h"
#include "controls/row_editing.h"

namespace kebu::controls {

namespace {

/// The entry with that code, or the end of the list.
auto itemOf(const QueryGrid::Items& items, const Value& code) {
  return std::ranges::find_if(
      items, [&](const auto& item) { return equalAsVariants(Value(item.first), code); });
}

}  // namespace

QueryGrid::QueryGrid(std::string name, ControlHost& host) : OfKind(std::move(name)), host_(host) {}

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
                std::string(definition.lookup)};
  for (const ValueListItem& item : definition.items) {
    column.items.emplace_back(item.code, translated(item.caption));
  }
  columns_.push_back(std::move(column));
  changed.raise();
}

void QueryGrid::setDataSource(const Ref<ado::Recordset>& rows) {
  rows_ = rows;
  cache_.attach(rows);
  formatDescriptions();
  changed.raise();
  if (rowCount() > 0) RowChanged.raise();
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
  formatDescriptions();
  changed.raise();
}

void QueryGrid::formatDescriptions() {
  descriptions_.clear();
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
  writeRow(*rows_, cells);
  cache_.invalidate();
}

std::int32_t QueryGrid::currentRow() const {
  return rows_ && rows_->isOpen() ? std::max(rows_->AbsolutePosition(), 0) : 0;
}

Value QueryGrid::cell(std::int32_t row, std::string_view field) {
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
  return rowStateField_.empty() ? Value(Null{}) : cell(row, rowStateField_);
}

const QueryGrid::Column* QueryGrid::findColumn(std::string_view field) const {
  const auto column = std::ranges::find(columns_, field, &Column::field);
  return column == columns_.end() ? nullptr : &*column;
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
      try {
        write({{field, value}});
      } catch (const RuntimeError& error) {
        if (!error.isValueError()) throw;
        host_.message("Valore non valido: \"" + toDisplay(value) + "\".", msgbox::exclamation);
        stored = false;
      }
    });
    return stored;
  });
}

void QueryGrid::commit(const std::string& field, const Value& value) {
  if (store(field, value)) OnEdited.raise(field);
  refresh();
}

void QueryGrid::edit(std::int32_t row, const std::string& field, const Value& value) {
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
  requireChangesAccepted();
  if (requireCell(row, field).kind != ColumnKind::Check) {
    throw GestureRefused(field + " of " + Name() + " is not a check column");
  }
  bool cancel = false;
  SelectionBoxClick.raise(field, cancel);
  if (cancel) return;
  const bool ticked = toBoolean(CDecN(rows_->value(field)));
  commit(field, static_cast<std::int16_t>(ticked ? 0 : 1));
}

void QueryGrid::tickAll(const std::string& field, bool on) {
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
    if (equalAsVariants(CDecN(rows_->value(field)), flag)) continue;
    if (!store(field, flag)) break;
  }
  rows_->setAbsolutePosition(current);
  refresh();
}

void QueryGrid::lookup(std::int32_t row, const std::string& field) {
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

}  // namespace kebu::controls
