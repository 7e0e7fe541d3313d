#include "windows/views/grid/query_grid_view.h"

#include <algorithm>

#include "common/convert.h"
#include "common/nulls.h"
#include "windows/support/text.h"
#include "windows/views/window/guard.h"

namespace kebu::windows {

namespace {

constexpr int twipsPerUnit = 15;  // 1440 twips or 96 units to the inch

}  // namespace

QueryGridView::QueryGridView(ViewSite& site, controls::QueryGrid& model, HWND parent)
    : View(site, model, "QueryGrid"),
      model_(model),
      grid_(site.module(), parent, site.theme(), *this) {
  adopt(grid_.handle());
  moves_ = model_.tools().moved.connect([this] { grid_.showCurrentRow(); });
}

void QueryGridView::readColumns() {
  columns_.clear();
  for (const controls::QueryGrid::Column& column : model_.columns()) {
    columns_.push_back({column.field, column.caption, column.width / twipsPerUnit, column.kind,
                        column.refusesAll});
  }
}

void QueryGridView::refresh() {
  const auto& now = model_.columns();
  const bool same = std::equal(
      now.begin(), now.end(), columns_.begin(), columns_.end(),
      [](const auto& a, const Column& b) { return a.field == b.field && a.caption == b.caption; });
  if (!same) readColumns();
  EnableWindow(handle(), looksEnabled());
  grid_.sourceChanged();
}

std::string QueryGridView::title() const {
  return model_.caption().empty() ? model_.Name() : model_.caption();
}

std::string QueryGridView::cellText(std::int32_t row, std::size_t column) {
  // While painting, a cell that cannot be read is an empty one.
  std::string text;
  ignoringErrors([&] { text = model_.cellText(rowAt(row), column); });
  return text;
}

std::vector<std::string> QueryGridView::itemsOf(std::int32_t row, std::size_t column) {
  std::vector<std::string> texts;
  for (const auto& item : model_.itemsOf(rowAt(row), model_.columns().at(column))) {
    texts.push_back(item.second);
  }
  return texts;
}

bool QueryGridView::isLocked(std::int32_t row, std::size_t column) {
  bool locked = true;
  ignoringErrors([&] { locked = model_.isLocked(rowAt(row), model_.columns().at(column)); });
  return locked;
}

bool QueryGridView::isUnused(std::int32_t row, std::size_t column) {
  bool unused = false;
  ignoringErrors([&] { unused = model_.isUnused(rowAt(row), fieldOf(column)); });
  return unused;
}

std::string QueryGridView::warningOf(std::int32_t row, std::size_t column) {
  return model_.isUnknown(rowAt(row), fieldOf(column)) ? model_.unknownText() : "";
}

int QueryGridView::rowState(std::int32_t row) {
  int state = 0;
  ignoringErrors([&] { state = toInt32(CDecN(model_.rowState(rowAt(row)))); });
  return state;
}

std::string QueryGridView::stateInWords(std::int32_t row) {
  switch (keepsRowState() ? rowState(row) : 0) {
    case completeRow:
      return translated("riga completa");
    case incompleteRow:
      return translated("riga incompleta");
    default:
      return {};
  }
}

void QueryGridView::edit(std::int32_t row, std::size_t column, const std::string& text) {
  model_.edit(rowAt(row), fieldOf(column), Value(text));
}

void QueryGridView::choose(std::int32_t row, std::size_t column, std::size_t item) {
  const auto& items = model_.itemsOf(rowAt(row), model_.columns().at(column));
  model_.edit(rowAt(row), fieldOf(column), Value(items.at(item).first));
}

void QueryGridView::empty(std::int32_t row, std::size_t column) {
  model_.edit(rowAt(row), fieldOf(column), Null{});
}

void QueryGridView::tick(std::int32_t row, std::size_t column) {
  model_.tickCell(rowAt(row), fieldOf(column));
}

void QueryGridView::lookup(std::int32_t row, std::size_t column) {
  model_.lookup(rowAt(row), fieldOf(column));
}

controls::Menu QueryGridView::rowMenu() {
  const std::int32_t row = model_.currentRow();
  return model_.rowMenu && row > 0 ? model_.rowMenu(row) : controls::Menu();
}

std::function<void()> QueryGridView::actionFor(const Key& key) {
  if (!key.mnemonic) return grid_.actionFor(key);
  if (key.code != VK_RETURN || !model_.showDetails || model_.currentRow() < 1) return {};
  return [this] {
    if (grid_.commit()) guarded([&] { model_.details(model_.currentRow()); });
  };
}

std::size_t QueryGridView::columnOf(const Inspection& inspection) const {
  if (inspection.key[0] == L'\0') return static_cast<std::size_t>(inspection.index);
  const std::string key = toUtf8(inspection.key);
  const auto at = std::ranges::find_if(
      columns_, [&](const Column& column) { return equalsIgnoringCase(column.field, key); });
  return static_cast<std::size_t>(at - columns_.begin());
}

void QueryGridView::describe(Inspection& inspection) {
  View::describe(inspection);
  inspection.count = model_.rowCount();
  inspection.columns = static_cast<std::int32_t>(columns_.size());
  inspection.current = currentRow();
  inspection.index = static_cast<std::int32_t>(grid_.currentColumn());
  write(inspection.hint, toWide(tools().status()));
  if (tools().isBusy()) addMark(inspection, "busy");
}

bool QueryGridView::describePart(Inspection& inspection) {
  describeWindow(inspection, handle());
  inspection.bounds = {};
  const bool seen = IsWindowVisible(handle()) != 0;
  const std::int32_t row = inspection.row;
  if (inspection.part == Inspected::Row && row == 0) {
    if (seen) inspection.bounds = grid_.headsBounds();
    write(inspection.spoken, toWide(translated("Intestazioni")));
    return true;
  }
  if (inspection.part == Inspected::Row) {
    if (row < 1 || row > model_.rowCount()) return false;
    write(inspection.spoken, toWide(translated("Riga") + " " + std::to_string(row)));
    write(inspection.description, toWide(stateInWords(row)));
    if (seen) inspection.bounds = grid_.rowBounds(row);
    const std::string state = toDisplay(model_.rowState(rowAt(row)));
    writeName(inspection, model_.rowStateField());
    if (!state.empty()) addMark(inspection, state.c_str());
    return true;
  }
  const std::size_t index = columnOf(inspection);
  if (index >= columns_.size()) return false;
  const controls::QueryGrid::Column& column = model_.columns()[index];
  inspection.index = static_cast<std::int32_t>(index);
  writeName(inspection, column.field);
  write(inspection.spoken, toWide(grid_.headOf(index)));
  switch (inspection.part) {
    case Inspected::Column:
      if (seen) inspection.bounds = grid_.headBounds(index);
      writeText(inspection, column.caption);
      if (const auto& sorted = tools().sortedBy(); sorted && sorted->column == index) {
        addMark(inspection, sorted->isDescending ? "sorted-down" : "sorted");
        write(inspection.description,
              toWide(translated(sorted->isDescending ? "decrescente" : "crescente")));
      }
      inspection.count =
          static_cast<std::int32_t>(model_.itemsOf(model_.currentRow(), column).size());
      return true;
    case Inspected::Choice: {
      const auto choice = static_cast<std::size_t>(row) - 1;
      const auto& items = model_.itemsOf(model_.currentRow(), column);
      if (row < 1 || choice >= items.size()) return false;
      writeName(inspection, std::to_string(items[choice].first));
      writeText(inspection, items[choice].second);
      return true;
    }
    case Inspected::TickAll:
      if (column.kind != controls::ColumnKind::Check) return false;
      if (seen) inspection.bounds = grid_.tickAllBounds(index);
      writeText(inspection, grid_.isTickAllOn(index) ? "1" : "0");
      if (grid_.isTickAllOn(index)) addMark(inspection, "chosen");
      if (model_.tickState(column.field) == controls::TickState::Some) addMark(inspection, "some");
      return true;
    case Inspected::Cell: {
      if (row < 1 || row > model_.rowCount()) return false;
      if (seen) inspection.bounds = grid_.cellBounds(row, index);
      writeText(inspection, model_.cellText(rowAt(row), index));
      if (column.kind == controls::ColumnKind::Check) {
        addMark(inspection, "check");
        if (model_.cellText(rowAt(row), index) == "1") addMark(inspection, "ticked");
      }
      if (model_.isUnknown(rowAt(row), column.field)) {
        write(inspection.description, toWide(model_.unknownText()));
      } else if (keepsRowState() && rowState(row) == incompleteRow) {
        write(inspection.description, toWide(stateInWords(row)));
      }
      if (isChangeable(column.kind) && model_.isLocked(rowAt(row), column)) {
        addMark(inspection, "locked");
      }
      if (model_.isUnused(rowAt(row), column.field)) addMark(inspection, "unused");
      if (model_.isUnknown(rowAt(row), column.field)) addMark(inspection, "unknown");
      return true;
    }
    default:
      return false;
  }
}

}  // namespace kebu::windows
