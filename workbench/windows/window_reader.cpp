#include "workbench/windows/window_reader.h"

#include <algorithm>
#include <cwchar>
#include <sstream>

#include "common/convert.h"
#include "controls/query_editor.h"
#include "windows/support/text.h"
#include "windows/views/window/window_text.h"
#include "workbench/player/scenario.h"

namespace kebu::workbench {

using windows::Inspected;
using windows::Inspection;

namespace {

template <std::size_t size>
void put(wchar_t (&field)[size], const std::string& text) {
  const std::wstring wide = windows::toWide(text);
  if (wide.size() >= size) throw StepError("\"" + text + "\" is too long for a name");
  std::wmemcpy(field, wide.c_str(), wide.size() + 1);
}

/// A caption as it is read: the mark of its mnemonic is not shown.
std::string shownCaption(HWND window) {
  return replaceAll(windows::toUtf8(windows::windowText(window)), "&", "");
}

std::string markText(const std::string& mark) {
  return mark == "no-record" ? "no record" : mark;
}

bool isShownWithoutText(const std::string& kind) {
  return kind == "RecordFrame" || kind == "ResizeManager";
}

std::string placeOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return "at " + std::to_string(place.left) + ", " + std::to_string(place.top);
}

}  // namespace

std::string kindOf(const Inspection& inspection) {
  return windows::toUtf8(inspection.kind);
}
std::string textOf(const Inspection& inspection) {
  return windows::toUtf8(inspection.text);
}
std::string nameOf(const Inspection& inspection) {
  return windows::toUtf8(inspection.name);
}

std::vector<std::string> marksOf(const Inspection& inspection) {
  std::istringstream words(windows::toUtf8(inspection.marks));
  std::vector<std::string> marks;
  for (std::string word; words >> word;) marks.push_back(word);
  return marks;
}

bool isMarked(const Inspection& inspection, const std::string& mark) {
  const auto marks = marksOf(inspection);
  return std::find(marks.begin(), marks.end(), mark) != marks.end();
}

std::optional<Inspection> WindowReader::find(Part part, const std::string& control,
                                             const Which& which) const {
  Inspection inspection;
  inspection.part = part;
  put(inspection.control, control);
  put(inspection.key, which.key);
  inspection.index = which.index;
  inspection.row = which.row;
  if (!SendMessageW(window_, windows::inspectMessage(), 0, reinterpret_cast<LPARAM>(&inspection))) {
    return std::nullopt;
  }
  return inspection;
}

Inspection WindowReader::control(const std::string& name) const {
  const Inspection form = find(Inspected::Control, "", {}).value_or(Inspection{});
  if (equalsIgnoringCase(nameOf(form), name)) return form;
  const auto found = find(Inspected::Control, name, {});
  if (!found) throw StepError(nameOf(form) + " has no control " + name);
  return *found;
}

std::vector<std::string> WindowReader::controlNames() const {
  std::vector<std::string> names;
  for (std::int32_t i = 0;; ++i) {
    const auto item = find(Inspected::Item, "", {"", i, 0});
    if (!item) return names;
    names.push_back(nameOf(*item));
  }
}

std::optional<std::string> WindowReader::firstOfKind(const std::string& kind) const {
  for (const std::string& name : controlNames()) {
    const auto found = find(Inspected::Control, name, {});
    if (found && kindOf(*found) == kind) return name;
  }
  return std::nullopt;
}

void WindowReader::describeItems(ControlView& view, const Inspection& control) const {
  const std::string kind = kindOf(control);
  for (std::int32_t i = 0; i < control.count; ++i) {
    const auto item = find(Inspected::Item, view.name, {"", i, 0});
    if (!item) return;
    const std::string chosen = isMarked(*item, "chosen") ? "chosen" : "";
    if (kind == "NavigatorBar") {
      view.items.push_back({textOf(*item), item->enabled ? "enabled" : "disabled"});
    } else if (kind == "QueryEditor") {
      view.items.push_back({nameOf(*item), textOf(*item)});
    } else if (kind == "NoticeList") {
      view.items.push_back({textOf(*item), nameOf(*item)});
    } else if (kind == "Sheet") {
      view.items.push_back({textOf(*item), isMarked(*item, "warning") ? "warning" : ""});
    } else if (kind == "StatusBar") {
      view.items.push_back({"\"" + textOf(*item) + "\"", ""});
    } else {
      std::string mark = chosen;
      if (isMarked(*item, "changed")) mark += mark.empty() ? "changed" : ", changed";
      view.items.push_back({nameOf(*item) + ": " + textOf(*item), mark});
    }
    if (kind == "ComboBox" && !chosen.empty()) view.value = view.items.back().text;
  }
}

void WindowReader::describeGrid(ControlView& view, const Inspection& control,
                                const RowRange& rows) const {
  GridView& content = view.grid.emplace();
  content.rowCount = control.count;
  content.currentRow = control.current;
  for (std::int32_t i = 0; i < control.columns; ++i) {
    const Inspection column = find(Inspected::Column, view.name, {"", i, 0}).value_or(Inspection{});
    content.columns.push_back({nameOf(column), textOf(column)});
  }
  const std::int32_t last = std::min(rows.last, control.count);
  for (std::int32_t row = std::max(rows.first, 1); row <= last; ++row) {
    GridRowView& line = content.rows.emplace_back();
    line.number = row;
    line.state =
        windows::toUtf8(find(Inspected::Row, view.name, {"", 0, row}).value_or(Inspection{}).marks);
    for (std::int32_t i = 0; i < control.columns; ++i) {
      const Inspection cell = find(Inspected::Cell, view.name, {"", i, row}).value_or(Inspection{});
      line.cells.push_back({textOf(cell), isMarked(cell, "locked"), isMarked(cell, "unused"),
                            isMarked(cell, "unknown")});
    }
  }
}

void WindowReader::describeChildren(ControlView& view, const Inspection& control) const {
  const bool isForm = kindOf(control) == "Form";
  std::vector<Inspection> all;
  std::vector<HWND> groups;
  std::string editor;
  for (const std::string& name : controlNames()) {
    const auto found = find(Inspected::Control, name, {});
    if (!found || isShownWithoutText(kindOf(*found))) continue;
    if (kindOf(*found) == "QueryEditor") {
      editor = name;
    } else if (controls::QueryEditor::isPartName(editor, name)) {
      continue;  // told as its fields
    }
    if (kindOf(*found) == "GroupBox") groups.push_back(found->window);
    all.push_back(*found);
  }
  for (const Inspection& each : all) {
    const bool inside = std::any_of(groups.begin(), groups.end(), [&](HWND group) {
      return IsChild(group, each.window) && (isForm || group == control.window);
    });
    if (isForm ? !inside && each.visible : inside) view.children.push_back(look(nameOf(each), {}));
  }
}

ControlView WindowReader::look(const std::string& name, const RowRange& rows) const {
  const Inspection found = control(name);
  const std::string kind = kindOf(found);
  ControlView view;
  view.name = nameOf(found);
  view.enabled = found.enabled;
  view.visible = found.visible;
  for (const std::string& mark : marksOf(found)) {
    if (mark != "chosen") view.marks.push_back(markText(mark));
  }
  if (kind == "EditBox" || kind == "ProgressBar" || kind == "RecordFrame") {
    view.value = textOf(found);
    view.hint = windows::toUtf8(found.hint);
  } else if (kind == "ComboBox") {
    view.value = "";
    describeItems(view, found);
  } else if (kind == "CheckBox") {
    view.value = isMarked(found, "chosen") ? "[x]" : "[ ]";
    view.caption = shownCaption(found.window);
  } else if (kind != "QueryEditor") {
    view.caption = textOf(found);
  }
  if (kind == "QueryGrid") view.hint = windows::toUtf8(found.hint);
  if (found.caption[0]) view.caption = windows::toUtf8(found.caption);
  if (kind == "QueryEditor" || kind == "NavigatorBar" || kind == "NoticeList" || kind == "Sheet" ||
      kind == "SideBar" || kind == "StatusBar") {
    describeItems(view, found);
  } else if (kind == "QueryGrid") {
    describeGrid(view, found, rows);
  } else if (kind == "GroupBox" || kind == "Form") {
    if (kind == "Form") view.value = placeOf(found.window);
    describeChildren(view, found);
  }
  return view;
}

std::string WindowReader::value(const std::string& name) const {
  const Inspection found = control(name);
  const std::string kind = kindOf(found);
  if (kind == "EditBox") return windows::toUtf8(windows::windowText(found.window));
  if (kind == "QueryEditor") return value(controls::QueryEditor::composedTextName(nameOf(found)));
  if (kind == "ComboBox" || kind == "SideBar") {
    const auto item = find(Inspected::Item, name, {"", found.current - 1, 0});
    return found.current > 0 && item ? nameOf(*item) : "";
  }
  if (kind == "StatusBar") {
    std::string text;
    for (std::int32_t i = 0; i < found.count; ++i) {
      const Inspection panel = find(Inspected::Item, name, {"", i, 0}).value_or(Inspection{});
      text += (text.empty() ? "" : " ") + textOf(panel);
    }
    return text;
  }
  for (const char* other :
       {"CheckBox", "RecordFrame", "ProgressBar", "Label", "NoticeList", "TitleBar"}) {
    if (kind == other) return textOf(found);
  }
  throw StepError(name + " holds no value");
}

}  // namespace kebu::workbench
