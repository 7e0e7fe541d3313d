#include "workbench/player/model_hands.h"

#include <algorithm>

#include "common/convert.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/navigator_bar.h"
#include "controls/query_grid.h"
#include "controls/sheet.h"
#include "controls/simple_controls.h"
#include "workbench/player/control_reader.h"
#include "workbench/player/scenario.h"

namespace kebu::workbench {

using namespace controls;

Form& ModelHands::window() const {
  Form* const form = desktop_.front();
  if (!form) throw StepError("no window is open");
  return *form;
}

Control& ModelHands::control(const std::string& name) const {
  Form& form = window();
  if (equalsIgnoringCase(form.Name(), name)) return form;
  Control* const found = form.find(name);
  if (!found) throw StepError(form.Name() + " has no control " + name);
  return *found;
}

template <class Kind>
Kind& ModelHands::require(const std::string& name, const char* kind) const {
  auto* const found = as<Kind>(control(name));
  if (!found) throw StepError(name + " is not " + kind);
  return *found;
}

void ModelHands::openPage(std::int32_t view) {
  for (Control* each : window().controls()) {
    if (auto* const links = as<SideBar>(*each)) return links->click(view);
  }
  throw StepError(window().Name() + " has no side bar");
}

void ModelHands::press(const std::string& bar, const std::string& button) {
  require<NavigatorBar>(bar, "a navigator bar").press(button);
}

void ModelHands::askChanges(const std::string& bar) {
  require<NavigatorBar>(bar, "a navigator bar").askChanges();
}

void ModelHands::clickButton(const std::string& button) {
  require<Button>(button, "a button").click();
}

void ModelHands::type(const std::string& box, const std::string& text) {
  require<EditBox>(box, "an edit box").type(text);
}

void ModelHands::choose(const std::string& combo, const std::string& code) {
  require<ComboBox>(combo, "a combo box").choose(code);
}

void ModelHands::tick(const std::string& check, bool on) {
  require<CheckBox>(check, "a check box").tick(on);
}

void ModelHands::selectRow(const std::string& grid, std::int32_t row) {
  require<QueryGrid>(grid, "a grid").selectRow(rowAt(grid, row));
}

void ModelHands::edit(const std::string& grid, std::int32_t row, const std::string& field,
                      const Value& value) {
  require<QueryGrid>(grid, "a grid").edit(rowAt(grid, row), field, value);
}

void ModelHands::tickCell(const std::string& grid, std::int32_t row, const std::string& field) {
  require<QueryGrid>(grid, "a grid").tickCell(rowAt(grid, row), field);
}

void ModelHands::tickAll(const std::string& grid, const std::string& field, bool on) {
  require<QueryGrid>(grid, "a grid").tickAll(field, on);
}

std::int32_t ModelHands::rowAt(const std::string& grid, std::int32_t place) const {
  GridTools& tools = require<QueryGrid>(grid, "a grid").tools();
  tools.finish();
  return tools.rowAt(place);
}

std::size_t ModelHands::columnOf(QueryGrid& grid, const std::string& field) {
  const auto& columns = grid.columns();
  const auto at = std::find_if(columns.begin(), columns.end(), [&](const auto& column) {
    return equalsIgnoringCase(column.field, field);
  });
  if (at == columns.end()) throw GestureRefused(grid.Name() + " has no column " + field);
  return static_cast<std::size_t>(at - columns.begin());
}

void ModelHands::sort(const std::string& grid, const std::string& field) {
  auto& found = require<QueryGrid>(grid, "a grid");
  found.tools().sortBy(columnOf(found, field));
  found.tools().finish();
}

void ModelHands::find(const std::string& grid, const std::string& text, const std::string& field) {
  auto& found = require<QueryGrid>(grid, "a grid");
  found.tools().find(text, field.empty() ? std::nullopt : std::optional(columnOf(found, field)));
  found.tools().finish();
}

void ModelHands::findNext(const std::string& grid, bool backwards) {
  GridTools& tools = require<QueryGrid>(grid, "a grid").tools();
  if (backwards) {
    tools.findPrevious();
  } else {
    tools.findNext();
  }
  tools.finish();
}

std::string ModelHands::copySheet(const std::string& sheet, bool asFile) {
  auto& copied = require<Sheet>(sheet, "a sheet");
  std::string text;
  const auto take = [&](const std::string& taken) { text = taken; };
  const Subscription taking =
      asFile ? copied.SaveWanted.connect(take) : copied.CopyWanted.connect(take);
  if (asFile) {
    copied.save();
  } else {
    copied.copy();
  }
  return text;
}

std::string ModelHands::copy(const std::string& grid, CopiedPart part) {
  auto& found = require<QueryGrid>(grid, "a grid");
  GridTools& tools = found.tools();
  tools.finish();
  const std::int32_t place = tools.placeOf(found.currentRow());
  std::string text;
  const auto take = [&](const std::string& copied) { text = copied; };
  switch (part) {
    case CopiedPart::Cell:
      return tools.copiedCell(place, 0);
    case CopiedPart::Row:
      tools.copyRows(place, place, take);
      break;
    case CopiedPart::All:
      tools.copyRows(1, found.rowCount(), take);
      break;
    case CopiedPart::Csv:
      tools.exportRows([&](std::string_view piece) { text += piece; }, [](bool) {});
      break;
  }
  tools.finish();
  return text;
}

void ModelHands::lookup(const std::string& box) {
  require<EditBox>(box, "an edit box").lookup();
}

void ModelHands::lookupCell(const std::string& grid, std::int32_t row, const std::string& field) {
  require<QueryGrid>(grid, "a grid").lookup(rowAt(grid, row), field);
}

void ModelHands::details(const std::string& grid, std::int32_t row) {
  require<QueryGrid>(grid, "a grid").details(rowAt(grid, row));
}

void ModelHands::chooseFromRowMenu(const std::string& grid, std::int32_t row,
                                   const std::string& entry) {
  require<QueryGrid>(grid, "a grid").choose(rowAt(grid, row), entry);
}

NoticeList* ModelHands::noticeList() const {
  for (Control* each : window().controls()) {
    if (auto* const list = as<NoticeList>(*each)) return list;
  }
  return nullptr;
}

std::vector<ItemView> ModelHands::notices() {
  NoticeList* const list = noticeList();
  return list ? viewOf(*list, {}).items : std::vector<ItemView>();
}

void ModelHands::pressNotice(const std::string& text) {
  noticeList()->press(noticeWith(text, notices()));
}

void ModelHands::pressKeys(const std::vector<std::string>& keys) {
  const int before = desktop_.works();
  for (const std::string& key : keys) {
    if (desktop_.works() != before) return;
    try {
      pressKey(key);
    } catch (const GestureRefused&) {
      // Windows beep.
    }
  }
}

namespace {

bool hasCancelButton(const Form& form) {
  const auto all = form.controls();
  return std::any_of(all.begin(), all.end(), [](const Control* control) {
    const auto* const button = as<Button>(*control);
    return button && button->isCancel();
  });
}

}  // namespace

void ModelHands::pressKey(const std::string& key) {
  Form& form = window();
  Button* const button = form.defaultButton();
  if (button && (key == "Enter" || key == "F10")) return button->click();
  if (key == "Esc" && hasCancelButton(form)) {
    form.Unload();
    return;
  }
  if (Button* const own = form.buttonOfKey(key)) return own->click();
  if (key == "Ctrl+F1") return form.showKeys();
  for (Control* each : form.controls()) {
    auto* const bar = as<NavigatorBar>(*each);
    if (!bar || !bar->isShown()) continue;
    if (key == "Ctrl+F10") return bar->askChanges();
    for (const auto& shown : bar->buttons()) {
      if (functionKeyOf(shown.key) == key) return bar->press(shown.key);
    }
  }
}

std::string ModelHands::tickState(const std::string& grid, const std::string& field) {
  switch (require<QueryGrid>(grid, "a grid").tickState(field)) {
    case TickState::All:
      return "all";
    case TickState::Some:
      return "some";
    default:
      return "none";
  }
}

void ModelHands::toFront(std::int32_t number) {
  const auto found = windows_.find(number);
  if (found == windows_.end()) return;  // it is being shown modally, and is in front
  desktop_.activate(*found->second);
}

bool ModelHands::isFocused(const std::string& name) {
  return window().focusWanted() == &control(name);
}

void ModelHands::activateWindow() {
  window().activate();
}

ControlView ModelHands::look(const std::string& name, const RowRange& rows) {
  return viewOf(control(name), rows);
}

std::string ModelHands::value(const std::string& name) {
  return valueOf(control(name));
}

std::string ModelHands::cellText(const std::string& grid, std::int32_t row,
                                 const std::string& field) {
  return cellTextOf(require<QueryGrid>(grid, "a grid"), row, field);
}

bool ModelHands::isButtonEnabled(const std::string& bar, const std::string& button) {
  const auto& shown = require<NavigatorBar>(bar, "a navigator bar");
  const auto& buttons = shown.buttons();
  const auto at = std::find_if(buttons.begin(), buttons.end(), [&](const auto& b) {
    return b.key == button || b.caption == button;
  });
  if (at == buttons.end()) throw StepError(bar + " has no button \"" + button + "\"");
  return at->enabled && shown.looksEnabled();
}

}  // namespace kebu::workbench
