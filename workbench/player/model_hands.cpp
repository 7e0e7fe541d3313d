#include "workbench/player/model_hands.h"

#include <algorithm>

#include "common/convert.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/navigator_bar.h"
#include "controls/query_grid.h"
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
Kind& ModelHands::find(const std::string& name, const char* kind) const {
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
  find<NavigatorBar>(bar, "a navigator bar").press(button);
}

void ModelHands::clickButton(const std::string& button) {
  find<Button>(button, "a button").click();
}

void ModelHands::type(const std::string& box, const std::string& text) {
  find<EditBox>(box, "an edit box").type(text);
}

void ModelHands::choose(const std::string& combo, const std::string& code) {
  find<ComboBox>(combo, "a combo box").choose(code);
}

void ModelHands::tick(const std::string& check, bool on) {
  find<CheckBox>(check, "a check box").tick(on);
}

void ModelHands::selectRow(const std::string& grid, std::int32_t row) {
  find<QueryGrid>(grid, "a grid").selectRow(row);
}

void ModelHands::edit(const std::string& grid, std::int32_t row, const std::string& field,
                      const Value& value) {
  find<QueryGrid>(grid, "a grid").edit(row, field, value);
}

void ModelHands::tickCell(const std::string& grid, std::int32_t row, const std::string& field) {
  find<QueryGrid>(grid, "a grid").tickCell(row, field);
}

void ModelHands::tickAll(const std::string& grid, const std::string& field, bool on) {
  find<QueryGrid>(grid, "a grid").tickAll(field, on);
}

void ModelHands::lookup(const std::string& box) {
  find<EditBox>(box, "an edit box").lookup();
}

void ModelHands::lookupCell(const std::string& grid, std::int32_t row, const std::string& field) {
  find<QueryGrid>(grid, "a grid").lookup(row, field);
}

void ModelHands::details(const std::string& grid, std::int32_t row) {
  find<QueryGrid>(grid, "a grid").details(row);
}

void ModelHands::chooseFromRowMenu(const std::string& grid, std::int32_t row,
                                   const std::string& entry) {
  find<QueryGrid>(grid, "a grid").choose(row, entry);
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

void ModelHands::pressKey(const std::string& key) {
  Form& form = window();
  Button* const button = form.defaultButton();
  if (button && (key == "Enter" || key == "F10")) return button->click();
  if (button && key == "Esc") {
    form.Unload();
    return;
  }
  for (Control* each : form.controls()) {
    auto* const bar = as<NavigatorBar>(*each);
    if (!bar || !bar->isShown()) continue;
    for (const auto& shown : bar->buttons()) {
      if (functionKeyOf(shown.key) == key) return bar->press(shown.key);
    }
  }
}

std::string ModelHands::tickState(const std::string& grid, const std::string& field) {
  switch (find<QueryGrid>(grid, "a grid").tickState(field)) {
    case TickState::All:
      return "all";
    case TickState::Some:
      return "some";
    default:
      return "none";
  }
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
  return cellTextOf(find<QueryGrid>(grid, "a grid"), row, field);
}

bool ModelHands::isButtonEnabled(const std::string& bar, const std::string& button) {
  const auto& shown = find<NavigatorBar>(bar, "a navigator bar");
  const auto& buttons = shown.buttons();
  const auto at = std::find_if(buttons.begin(), buttons.end(), [&](const auto& b) {
    return b.key == button || b.caption == button;
  });
  if (at == buttons.end()) throw StepError(bar + " has no button \"" + button + "\"");
  return at->enabled && shown.looksEnabled();
}

}  // namespace kebu::workbench
