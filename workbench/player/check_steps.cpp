#include <algorithm>

#include "common/convert.h"
#include "controls/control.h"
#include "workbench/player/control_printer.h"
#include "workbench/player/result_text.h"
#include "workbench/player/steps.h"

namespace kebu::workbench::steps {

namespace {

constexpr std::int32_t usualRows = 50;

std::string flagText(bool flag) {
  return flag ? "true" : "false";
}

std::string join(const Words& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

std::string hostValue(const Player& player, const HostProperty& property) {
  std::string text;
  player.atHost([&](StandInHost& host) {
    if (!host.plugin()) throw StepError("no window is open");
    text = property.get(*host.plugin());
  });
  return text;
}

std::string hostValue(const Player& player, const std::string& name) {
  const HostProperty* const property = findHostProperty(name);
  if (!property) throw StepError("the host knows no property " + name);
  return hostValue(player, *property);
}

void printHost(Player& player) {
  for (const HostProperty& property : hostProperties()) {
    player.out() << "  " << property.name << " = " << hostValue(player, property) << '\n';
  }
  int number = 0;
  for (const auto& panel : player.stage().host.statusBar().panels()) {
    ++number;
    if (panel->text().empty()) continue;
    player.out() << "  status bar panel " << number << " = \"" << panel->text() << "\"\n";
  }
}

/// A property of a control that can be checked beside its value.
struct Aspect {
  std::string_view name;
  bool isFlag;
  std::string (*of)(const ControlView& view);
};

bool isMarked(const ControlView& view, std::string_view mark) {
  return std::find(view.marks.begin(), view.marks.end(), mark) != view.marks.end();
}

const GridView& gridOf(const ControlView& view) {
  if (!view.grid) throw StepError(view.name + " is not a grid");
  return *view.grid;
}

constexpr Aspect aspects[] = {
    {"enabled", true, [](const ControlView& v) { return flagText(v.enabled); }},
    {"visible", true, [](const ControlView& v) { return flagText(v.visible); }},
    {"editable", true, [](const ControlView& v) { return flagText(!isMarked(v, "read-only")); }},
    {"required", true, [](const ControlView& v) { return flagText(isMarked(v, "required")); }},
    {"known", true, [](const ControlView& v) { return flagText(!isMarked(v, "unknown")); }},
    {"hint", false, [](const ControlView& v) { return v.hint; }},
    {"caption", false, [](const ControlView& v) { return v.caption; }},
    {"rows", false,
     [](const ControlView& v) {
       // For a combo or a bar the number of its entries.
       return std::to_string(v.items.empty() ? gridOf(v).rowCount
                                             : static_cast<std::int32_t>(v.items.size()));
     }},
    {"status", false, [](const ControlView& v) { return gridOf(v), v.hint; }},
    {"row", false, [](const ControlView& v) { return std::to_string(gridOf(v).currentRow); }},
};

/// Check boxes and cells may be given as on and off.
bool sameValue(const std::string& expected, const std::string& found) {
  return expected == found || (expected == "on" && found == "1") ||
         (expected == "off" && found == "0");
}

void checkText(Player& player, const Words& subject, const std::string& expected,
               const std::string& found) {
  player.check(expected == found, join(subject), expected, found);
}

void checkFlag(Player& player, const Words& subject, const std::string& expected, bool found) {
  checkText(player, subject, flagText(toFlag(expected)), flagText(found));
}

void expectMessage(Player& player, const std::string& text) {
  std::string shown;
  for (const ShownMessage& box : player.messages().boxes()) {
    shown += (shown.empty() ? "" : " / ") + replaceAll(box.text, "\r\n", " ");
  }
  player.check(player.messages().take(text), "message", text, shown);
}

/// `text` is a part of what was copied, with tabulators as " | " and the end of a line as " / ".
void expectCopied(Player& player, const std::string& text) {
  const std::string copied = replaceAll(replaceAll(player.copied(), "\t", " | "), "\r\n", " / ");
  constexpr std::size_t most = 300;
  player.check(copied.find(text) != std::string::npos, "copied", text, copied.substr(0, most));
}

void expectNoMessage(Player& player) {
  const auto& boxes = player.messages().boxes();
  player.check(boxes.empty(), "message", "", boxes.empty() ? "" : boxes.front().text);
  player.messages().clear();
}

std::string allOf(const std::vector<ItemView>& items) {
  std::string texts;
  for (const ItemView& each : items) texts += (texts.empty() ? "" : " / ") + each.text;
  return texts;
}

bool anyContains(const std::vector<ItemView>& notices, const std::string& text) {
  return std::any_of(notices.begin(), notices.end(), [&](const ItemView& each) {
    return each.text.find(text) != std::string::npos;
  });
}

void expectNotice(Player& player, const std::string& text) {
  const auto notices = player.stage().hands.notices();
  player.check(anyContains(notices, text), "notice", text, allOf(notices));
}

/// No notice that contains the text; without one no notice at all.
void expectNoNotice(Player& player, const std::string& text) {
  const auto notices = player.stage().hands.notices();
  player.check(!anyContains(notices, text), "no notice", text, allOf(notices));
}

/// A gesture that a person could not make now.
void expectRefused(Player& player, const Words& step) {
  bool refused = false;
  try {
    runStep(player, step);
  } catch (const controls::GestureRefused&) {
    refused = true;
  }
  player.check(refused, join(step), "refused", "done");
}

/// One of the lines of a sheet, as it is read aloud.
void expectLine(Player& player, const std::string& sheet, const std::string& expected) {
  const auto lines = player.stage().hands.look(sheet, {}).items;
  const bool isThere = std::any_of(lines.begin(), lines.end(),
                                   [&](const ItemView& line) { return line.text == expected; });
  player.check(isThere, sheet + " line", expected, isThere ? expected : allOf(lines));
}

void expectAspect(Player& player, const Words& subject, const std::string& expected) {
  if (subject[1] == "line") return expectLine(player, subject[0], expected);
  if (subject[1] == "focused") {
    return checkFlag(player, subject, expected, player.stage().hands.isFocused(subject[0]));
  }
  const auto* const aspect = std::find_if(std::begin(aspects), std::end(aspects),
                                          [&](const Aspect& a) { return a.name == subject[1]; });
  if (aspect == std::end(aspects)) throw StepError("controls have no \"" + subject[1] + "\"");
  checkText(player, subject, aspect->isFlag ? flagText(toFlag(expected)) : expected,
            aspect->of(player.stage().hands.look(subject[0], {})));
}

void expectContent(Player& player, const std::string& control, const std::string& expected) {
  Hands& hands = player.stage().hands;
  const std::string found = hands.value(control);
  const ControlView view = hands.look(control, {});
  // A password must not appear in the output of a failing check.
  const std::string shown = isMarked(view, "masked") ? *view.value : found;
  player.check(sameValue(expected, found), control, expected, shown);
}

/// Whether the side bar's link to a view is marked as changed.
void expectLink(Player& player, const Words& subject, const std::string& expected) {
  const auto links = player.stage().hands.look(subject[0], {}).items;
  const auto at = std::find_if(links.begin(), links.end(), [&](const ItemView& link) {
    return link.text.starts_with(subject[1] + ": ");
  });
  if (at == links.end()) throw StepError(subject[0] + " has no link to view " + subject[1]);
  checkFlag(player, subject, expected, at->mark.find("changed") != std::string::npos);
}

void expectValue(Player& player, const Words& subject, const std::string& expected) {
  Hands& hands = player.stage().hands;
  if (subject.size() == 2 && subject[0] == "sql") {
    checkText(player, subject, expected, firstRowText(player.stage().sql(subject[1])));
  } else if (subject.size() == 2 && subject[0] == "host") {
    checkText(player, subject, expected, hostValue(player, subject[1]));
  } else if (subject.size() == 1) {
    expectContent(player, subject[0], expected);
  } else if (subject.size() == 2) {
    expectAspect(player, subject, expected);
  } else if (isNumber(subject[1]) && subject[2] != "changed") {
    const std::string found = hands.cellText(subject[0], toNumber(subject[1]), subject[2]);
    player.check(sameValue(expected, found), join(subject), expected, found);
  } else if (subject[2] == "enabled") {
    checkFlag(player, subject, expected, hands.isButtonEnabled(subject[0], subject[1]));
  } else if (subject[2] == "ticked") {
    checkText(player, subject, expected, hands.tickState(subject[0], subject[1]));
  } else if (subject[2] == "changed") {
    expectLink(player, subject, expected);
  } else {
    throw StepError("\"" + subject[1] + "\" is not a row of " + subject[0]);
  }
}

}  // namespace

void print(Player& player, const Words& arguments) {
  if (arguments[0] == "host") {
    printHost(player);
    return;
  }
  RowRange rows{1, usualRows};
  if (arguments.size() > 1) {
    rows.first = toNumber(arguments[1]);
    rows.last = arguments.size() > 2 ? toNumber(arguments[2]) : rows.first;
  }
  printControl(player.out(), player.stage().hands.look(arguments[0], rows));
}

void expect(Player& player, const Words& arguments) {
  if (arguments.size() == 2 && arguments[0] == "message") {
    expectMessage(player, arguments[1]);
  } else if (arguments.size() == 2 && arguments[0] == "copied") {
    expectCopied(player, arguments[1]);
  } else if (arguments == Words{"no", "message"}) {
    expectNoMessage(player);
  } else if (arguments.size() == 2 && arguments[0] == "notice") {
    expectNotice(player, arguments[1]);
  } else if (arguments.size() <= 3 && arguments[0] == "no" && arguments[1] == "notice") {
    expectNoNotice(player, arguments.size() == 3 ? arguments[2] : "");
  } else if (arguments[0] == "refused") {
    expectRefused(player, Words(arguments.begin() + 1, arguments.end()));
  } else if (arguments.size() > 2 && arguments[arguments.size() - 2] == "=") {
    expectValue(player, Words(arguments.begin(), arguments.end() - 2), arguments.back());
  } else {
    throw StepError("nothing is stated: an expectation ends in = VALUE");
  }
}

}  // namespace kebu::workbench::steps
