#include "workbench/player/control_reader.h"

#include <algorithm>

#include "common/convert.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/navigator_bar.h"
#include "controls/query_editor.h"
#include "controls/record_frame.h"
#include "controls/simple_controls.h"
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
}

void describe(ControlView& view, const ComboBox& combo) {
  const ComboBox::Row* const row = combo.selected();
  view.value = row ? combo.text() + ": " + row->caption : "";
  for (const ComboBox::Row& each : combo.rows()) {
    view.items.push_back({toText(each.code) + ": " + each.caption, &each == row ? "chosen" : ""});
  }
}

void describe(ControlView& view, const NavigatorBar& bar) {
  for (const NavigatorBar::Button& button : bar.buttons()) {
    view.items.push_back({button.caption, button.enabled ? "enabled" : "disabled"});
  }
}

void describe(ControlView& view, const SideBar& bar) {
  for (const SideBar::Link& link : bar.links()) {
    view.items.push_back(
        {std::to_string(link.view) + ": " + link.text, &link == bar.selected() ? "chosen" : ""});
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

void describe(ControlView& view, const Form& form) {
  view.value = "at " + std::to_string(form.left()) + ", " + std::to_string(form.top());
  for (Control* control : form.controls()) {
    // Of a window only what can be seen; the frames have no looks of their own.
    if (control->container() || !control->isShown() || dynamic_cast<RecordFrame*>(control) ||
        dynamic_cast<ResizeManager*>(control)) {
      continue;
    }
    view.children.push_back(viewOf(*control, {}));
  }
}

void describe(ControlView& view, QueryGrid& grid, const RowRange& rows) {
  GridView& content = view.grid.emplace();
  content.rowCount = grid.rowCount();
  content.currentRow = grid.currentRow();
  for (const QueryGrid::Column& column : grid.columns()) {
    content.columns.push_back({column.field, column.caption});
  }
  const std::int32_t last = std::min(rows.last, content.rowCount);
  for (std::int32_t row = std::max(rows.first, 1); row <= last; ++row) {
    GridRowView& line = content.rows.emplace_back();
    line.number = row;
    line.state = toDisplay(grid.rowState(row));
    for (std::size_t i = 0; i < grid.columns().size(); ++i) {
      const QueryGrid::Column& column = grid.columns()[i];
      line.cells.push_back(
          {grid.cellText(row, i), isChangeable(column.kind) && grid.isLocked(row, column)});
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
  if (const auto* box = dynamic_cast<EditBox*>(&control)) {
    describe(view, *box);
  } else if (const auto* combo = dynamic_cast<ComboBox*>(&control)) {
    describe(view, *combo);
  } else if (const auto* check = dynamic_cast<CheckBox*>(&control)) {
    view.value = check->isTicked() ? "[x]" : "[ ]";
  } else if (const auto* bar = dynamic_cast<NavigatorBar*>(&control)) {
    describe(view, *bar);
  } else if (const auto* links = dynamic_cast<SideBar*>(&control)) {
    describe(view, *links);
  } else if (const auto* status = dynamic_cast<StatusBar*>(&control)) {
    describe(view, *status);
  } else if (const auto* progress = dynamic_cast<ProgressBar*>(&control)) {
    describe(view, *progress);
  } else if (const auto* frame = dynamic_cast<RecordFrame*>(&control)) {
    describe(view, *frame);
  } else if (const auto* editor = dynamic_cast<QueryEditor*>(&control)) {
    describe(view, *editor);
  } else if (const auto* group = dynamic_cast<GroupBox*>(&control)) {
    describe(view, *group);
  } else if (const auto* form = dynamic_cast<Form*>(&control)) {
    describe(view, *form);
  } else if (auto* grid = dynamic_cast<QueryGrid*>(&control)) {
    describe(view, *grid, rows);
  }
  return view;
}

std::string valueOf(const Control& control) {
  if (const auto* box = dynamic_cast<const EditBox*>(&control)) return box->text();
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) return combo->text();
  if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
    return check->isTicked() ? "1" : "0";
  }
  if (const auto* frame = dynamic_cast<const RecordFrame*>(&control))
    return nameOf(frame->status());
  if (const auto* editor = dynamic_cast<const QueryEditor*>(&control)) {
    return editor->composedText().text();
  }
  if (const auto* progress = dynamic_cast<const ProgressBar*>(&control)) return progress->text();
  if (const auto* links = dynamic_cast<const SideBar*>(&control)) {
    return links->selected() ? std::to_string(links->selected()->view) : "";
  }
  if (const auto* status = dynamic_cast<const StatusBar*>(&control)) {
    std::string text;
    for (const std::string& panel : status->panels()) text += (text.empty() ? "" : " ") + panel;
    return text;
  }
  if (dynamic_cast<const Label*>(&control) || dynamic_cast<const TitleBar*>(&control)) {
    return control.caption();
  }
  throw StepError(control.Name() + " holds no value");
}

std::string cellTextOf(QueryGrid& grid, std::int32_t row, const std::string& field) {
  if (row < 1 || row > grid.rowCount()) {
    throw StepError(grid.Name() + " has no row " + std::to_string(row));
  }
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
