#include "workbench/player/control_printer.h"

#include <algorithm>

#include "workbench/player/text_table.h"

namespace kebu::workbench {

namespace {

std::string quoted(const std::string& text) {
  return text.empty() ? "" : "\"" + text + "\"";
}

std::string stateOf(const ControlView& view) {
  std::string state = view.enabled ? "enabled" : "disabled";
  state += view.visible ? ", visible" : ", hidden";
  for (const std::string& mark : view.marks) state += ", " + mark;
  if (view.grid) state += ", " + std::to_string(view.grid->rowCount) + " rows";
  return state;
}

void addControl(TextTable& table, const ControlView& view, const std::string& indent) {
  table.add({indent + view.name, quoted(view.caption), view.value ? "= " + *view.value : "",
             stateOf(view)});
}

void addItems(TextTable& table, const ControlView& view, const std::string& indent) {
  for (const ItemView& item : view.items) {
    table.add({indent + (item.text.empty() ? "\"\"" : item.text), "", "", item.mark});
  }
}

void addChildren(TextTable& table, const ControlView& view, const std::string& indent) {
  for (const ControlView& child : view.children) {
    addControl(table, child, indent);
    // A combo's entries are printed only when the combo itself is.
    if (!child.value) addItems(table, child, indent + "  - ");
    addChildren(table, child, indent + "  ");
  }
}

/// The mark printed before a row, from its state column.
std::string markOf(const std::string& state) {
  if (state == "1") return "+";
  if (state == "2") return "!";
  return state;
}

std::string printed(const GridCellView& cell) {
  return cell.text + (cell.locked ? "*" : "") + (cell.unused ? "~" : "") +
         (cell.unknown ? "?" : "");
}

void printGrid(std::ostream& out, const GridView& grid) {
  TextTable table;
  std::vector<std::string> captions{""};
  std::vector<std::string> fields{""};
  for (const GridColumnView& column : grid.columns) {
    captions.push_back(column.caption);
    fields.push_back(column.field);
  }
  table.add(std::move(captions));
  table.add(std::move(fields));
  for (const GridRowView& row : grid.rows) {
    std::string head = (row.number == grid.currentRow ? "> " : "  ") + std::to_string(row.number);
    if (!row.state.empty()) head += " " + markOf(row.state);
    std::vector<std::string> line{std::move(head)};
    for (const GridCellView& cell : row.cells) line.push_back(printed(cell));
    table.add(std::move(line));
  }
  table.write(out, "  ");
  const std::int32_t left = grid.rows.empty() ? 0 : grid.rowCount - grid.rows.back().number;
  if (left > 0) out << "  ... and " << left << " more\n";
}

}  // namespace

void printControl(std::ostream& out, const ControlView& view) {
  TextTable table;
  addControl(table, view, "");
  addItems(table, view, "  - ");
  addChildren(table, view, "  ");
  table.write(out);
  if (view.grid) printGrid(out, *view.grid);
}

void printLookup(std::ostream& out, ShownList& list) {
  constexpr std::int32_t mostRows = 20;
  out << "  [ " << list.title() << " ]\n";
  TextTable table;
  std::vector<std::string> captions{""};
  const std::vector<std::string> columns = list.captions();
  captions.insert(captions.end(), columns.begin(), columns.end());
  table.add(captions);
  const std::int32_t rows = list.rowCount();
  for (std::int32_t row = 1; row <= std::min(rows, mostRows); ++row) {
    std::vector<std::string> line{std::to_string(row)};
    for (std::size_t column = 0; column < columns.size(); ++column) {
      line.push_back(list.cellText(row, column));
    }
    table.add(std::move(line));
  }
  table.write(out, "  ");
  if (rows > mostRows) out << "  ... and " << rows - mostRows << " more\n";
  if (rows == 0) out << "  (no rows)\n";
}

}  // namespace kebu::workbench
