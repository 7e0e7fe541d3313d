#include "workbench/player/control_reader.h"

#include <algorithm>

#include "common/convert.h"
#include "controls/visit.h"
#include "workbench/player/scenario.h"

namespace kebu::workbench {

namespace {

using namespace controls;

std::string masked(const std::string& text) {
  return std::string(text.size(), '*');
}

void describe(ControlView& view, const EditBox& box) {
  view.value = box.isMasked() ? masked(box.text()) : box.text();
  if (box.isMasked()) view.marks.emplace_back("masked");
  if (!box.isEditable()) view.marks.emplace_back("read-only");
  if (box.isRequired()) view.marks.emplace_back("required");
  if (box.hasLookup()) view.marks.emplace_back("look-up");
  if (box.isUnknown()) view.marks.emplace_back("unknown");
  view.hint = box.hint();
}

void describe(ControlView& view, const ComboBox& combo) {
  const ComboBox::Row* const row = combo.selected();
  view.value = row ? combo.text() + ": " + row->caption : "";
  for (const ComboBox::Row& each : combo.rows()) {
    view.items.push_back({toText(each.code) + ": " + each.caption, &each == row ? "chosen" : ""});
  }
}

void describe(ControlView& view, const CheckBox& check) {
  view.value = check.isTicked() ? "[x]" : "[ ]";
}

void describe(ControlView& view, const NavigatorBar& bar) {
  for (const NavigatorBar::Button& button : bar.buttons()) {
    view.items.push_back({button.caption, button.enabled ? "enabled" : "disabled"});
  }
}

void describe(ControlView& view, const NoticeList& list) {
  for (const Notice& notice : list.notices()) view.items.push_back({notice.text, notice.action});
}

void describe(ControlView& view, const Sheet& sheet) {
  for (const SheetLine& line : sheet.lines()) {
    view.items.push_back({readingOf(line), line.role == SheetLine::Role::Warning ? "warning" : ""});
  }
}

void describe(ControlView& view, const SideBar& bar) {
  for (const SideBar::Link& link : bar.links()) {
    std::string mark = &link == bar.selected() ? "chosen" : "";
    if (link.marked) mark += mark.empty() ? "changed" : ", changed";
    view.items.push_back({std::to_string(link.view) + ": " + link.text, std::move(mark)});
  }
}

void describe(ControlView& view, const StatusBar& bar) {
  for (const std::string& panel : bar.panels()) view.items.push_back({"\"" + panel + "\"", ""});
  if (bar.isAnimated()) view.marks.emplace_back("animated");
}

void describe(ControlView& view, const ProgressBar& bar) {
  view.value = bar.text();
  if (bar.isRunning()) view.marks.emplace_back("running");
}

void describe(ControlView& view, const RecordFrame& frame) {
  view.value = nameOf(frame.status());
  if (!frame.hasRecord()) view.marks.emplace_back("no record");
}

void describe(ControlView& view, const GroupBox& group) {
  for (Control* child : group.children()) view.children.push_back(viewOf(*child, {}));
}

void describe(ControlView& view, const QueryEditor& editor) {
  for (std::size_t field = 0; field < editor.fieldCount(); ++field) {
    view.items.push_back({editor.row(field).op.caption(), editor.sentence(field)});
  }
}

/// Whether a person sees anything of a shown control of that kind.
bool hasLooks(const Control& control) {
  return !as<RecordFrame>(control) && !as<ResizeManager>(control);
}

void describe(ControlView& view, const Form& form) {
  view.value = "at " + std::to_string(form.left()) + ", " + std::to_string(form.top());
  for (Control* control : form.controls()) {
    if (control->container() || !control->isShown() || !hasLooks(*control)) continue;
    view.children.push_back(viewOf(*control, {}));
  }
}

void describe(ControlView& view, QueryGrid& grid, const RowRange& rows) {
  GridView& content = view.grid.emplace();
  GridTools& tools = grid.tools();
  tools.finish();
  view.hint = tools.status();
  content.rowCount = grid.rowCount();
  content.currentRow = tools.placeOf(grid.currentRow());
  for (const QueryGrid::Column& column : grid.columns()) {
    content.columns.push_back({column.field, column.caption});
  }
  const std::int32_t last = std::min(rows.last, content.rowCount);
  for (std::int32_t place = std::max(rows.first, 1); place <= last; ++place) {
    const std::int32_t row = tools.rowAt(place);
    GridRowView& line = content.rows.emplace_back();
    line.number = place;
    line.state = toDisplay(grid.rowState(row));
    for (std::size_t i = 0; i < grid.columns().size(); ++i) {
      const QueryGrid::Column& column = grid.columns()[i];
      line.cells.push_back({grid.cellText(row, i),
                            isChangeable(column.kind) && grid.isLocked(row, column),
                            grid.isUnused(row, column.field), grid.isUnknown(row, column.field)});
    }
  }
}

}  // namespace

ControlView viewOf(Control& control, const RowRange& rows) {
  ControlView view;
  view.name = control.Name();
  view.caption = control.caption();
  view.enabled = control.looksEnabled();
  view.visible = control.isShown();
  visit(control, Overloaded{
                     [&](QueryGrid& grid) { describe(view, grid, rows); },
                     // Their caption is all.
                     [](const OneOf<Button, Label, MdiContainer, ResizeManager, TitleBar> auto&) {},
                     [&](const auto& other) { describe(view, other); },
                 });
  if (!control.acceptsChanges()) view.marks.emplace_back("locked");
  return view;
}

std::string valueOf(const Control& control) {
  return visit(
      control,
      Overloaded{
          [](const EditBox& box) { return box.text(); },
          [](const ComboBox& combo) { return combo.text(); },
          [](const CheckBox& check) { return std::string(check.isTicked() ? "1" : "0"); },
          [](const RecordFrame& frame) { return nameOf(frame.status()); },
          [](const QueryEditor& editor) { return editor.composedText().text(); },
          [](const ProgressBar& progress) { return progress.text(); },
          [](const SideBar& links) {
            return links.selected() ? std::to_string(links.selected()->view) : std::string();
          },
          [](const StatusBar& status) {
            std::string text;
            for (const std::string& panel : status.panels()) {
              text += (text.empty() ? "" : " ") + panel;
            }
            return text;
          },
          [](const OneOf<Label, NoticeList, TitleBar> auto& text) { return text.caption(); },
          [](const OneOf<Button, Form, GroupBox, MdiContainer, NavigatorBar, QueryGrid,
                         ResizeManager, Sheet> auto& other) -> std::string {
            throw StepError(other.Name() + " holds no value");
          },
      });
}

std::string cellTextOf(QueryGrid& grid, std::int32_t place, const std::string& field) {
  if (place < 1 || place > grid.rowCount()) {
    throw StepError(grid.Name() + " has no row " + std::to_string(place));
  }
  grid.tools().finish();
  const std::int32_t row = grid.tools().rowAt(place);
  const auto& columns = grid.columns();
  const auto at = std::find_if(columns.begin(), columns.end(), [&](const auto& column) {
    return equalsIgnoringCase(column.field, field);
  });
  if (at != columns.end()) {
    return grid.cellText(row, static_cast<std::size_t>(at - columns.begin()));
  }
  const auto& fields = grid.dataSource()->fields();
  if (std::none_of(fields.begin(), fields.end(),
                   [&](const auto& f) { return equalsIgnoringCase(f.name, field); })) {
    throw StepError(grid.Name() + " has no column " + field);
  }
  return trimRight(toDisplay(grid.cell(row, field)));
}

}  // namespace kebu::workbench
