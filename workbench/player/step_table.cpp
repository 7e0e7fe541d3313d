#include "workbench/player/step_table.h"

#include <algorithm>
#include <array>
#include <limits>

#include "common/whole_number.h"
#include "workbench/player/scenario.h"
#include "workbench/player/steps.h"

namespace kebu::workbench {

namespace {

constexpr std::size_t any = std::numeric_limits<std::size_t>::max();

using steps::gesture;

constexpr std::array table{
    Step{"open", 0, 0, "", "the host creates the plug-in and shows its window", steps::open},
    Step{"close", 0, 0, "", "the host closes the window; prints true or false", steps::close},
    Step{"window", 1, 1, "N", "goes to window N of several on the company; open opens it",
         steps::window},
    Step{"activate", 0, 0, "", "the window comes to the front again",
         gesture<&Hands::activateWindow>},
    Step{"set", 2, 2, "PROPERTY VALUE", "a property that the host gives the plug-in", steps::set},
    Step{"without", 1, 1, "SERVICE", "the host does not offer a service", steps::without},
    Step{"refuse", 1, 1, "EVENT", "the user's script refuses the next event (tsOpen, tsClose)",
         steps::refuse},
    Step{"page", 1, 1, "N", "clicks the side bar's link to view N", gesture<&Hands::openPage>},
    Step{"press", 2, 2, "BAR CAPTION", "presses a button of a navigator bar",
         gesture<&Hands::press>},
    Step{"changes", 1, 1, "BAR", "asks in a dialog what Conferma would change",
         gesture<&Hands::askChanges>},
    Step{"click", 1, 1, "BUTTON", "clicks a button", gesture<&Hands::clickButton>},
    Step{"type", 2, 2, "BOX TEXT", "enters an edit box, replaces its text, leaves it",
         gesture<&Hands::type>},
    Step{"choose", 2, 2, "COMBO CODE", "picks the entry with that code", gesture<&Hands::choose>},
    Step{"tick", 2, 2, "CHECK on|off", "sets a check box", gesture<&Hands::tick>},
    Step{"row", 2, 2, "GRID N", "moves to a row", gesture<&Hands::selectRow>},
    Step{"edit", 4, 4, "GRID N FIELD VALUE", "edits a cell; NULL empties it", steps::edit},
    Step{"tick-cell", 3, 3, "GRID N FIELD", "clicks a check cell", gesture<&Hands::tickCell>},
    Step{"tick-all", 3, 3, "GRID FIELD on|off", "clicks a column's select-all",
         gesture<&Hands::tickAll>},
    Step{"sort", 2, 2, "GRID FIELD", "clicks a column's head, which sorts the rows",
         gesture<&Hands::sort>},
    Step{"find", 2, 3, "GRID TEXT [FIELD]", "looks for a text in all columns or one", steps::find},
    Step{"find-next", 1, 1, "GRID", "goes to the next row that contains the text", steps::findNext},
    Step{"find-previous", 1, 1, "GRID", "goes to the previous one", steps::findPrevious},
    Step{"copy", 2, 2, "GRID cell|row|all|csv | SHEET text|file",
         "copies the current cell of the first column, the current row, or all rows, or exports "
         "them to a file; copies a sheet, or saves it in a file",
         steps::copy},
    Step{"lookup", 1, 4, "BOX [N] | GRID ROW FIELD [N] | EDITOR CAPTION 1|2 [N]",
         "opens a look-up, takes its row N; of a range's first or second value", steps::lookup},
    Step{"keys", 1, any, "KEY...",
         "presses keys without a pause: F3, F8, F9, F10, F11, Ctrl+F1, Ctrl+F10, Enter, Esc; while "
         "the window works they are lost",
         steps::keys},
    Step{"refresh", 0, 0, "", "reads again what a preview or the summary shows",
         gesture<&Hands::refresh>},
    Step{"details", 2, 2, "GRID N", "asks what a row stands for, with Alt+Enter",
         gesture<&Hands::details>},
    Step{"row-menu", 3, 3, "GRID N CAPTION", "chooses an entry of a row's context menu",
         gesture<&Hands::chooseFromRowMenu>},
    Step{"notice", 1, 1, "TEXT", "presses the button of the notice that contains the text",
         gesture<&Hands::pressNotice>},
    Step{"condition", 3, any, "EDITOR CAPTION OPERATOR [VALUE...]",
         "states a condition on a field: =, <>, between, starts, contains, in, empty, not-empty, "
         "clear",
         steps::condition},
    Step{
        "picture", 1, 2, "NAME [next]",
        "keeps a picture of the window, or of the next message box or look-up list, where there is "
        "a screen",
        steps::picture},
    Step{"answer", 1, any, "BUTTON...", "queues the answers to the message boxes to come",
         steps::answer},
    Step{"fail", 1, 2, "TEXT [TIMES]", "the next statements that contain TEXT fail", steps::fail},
    Step{"lose", 1, 2, "TEXT [TIMES]",
         "the next statements that contain TEXT are carried out, but their answer is lost",
         steps::lose},
    Step{"server", 1, 2, "off [TEXT] | on",
         "the database server goes away, at once or when a statement that contains TEXT is sent; "
         "is back",
         steps::server},
    Step{"slow", 2, 2, "TEXT SECONDS", "the next statement that contains TEXT lasts so long",
         steps::slow},
    Step{"interrupt", 1, 1, "TEXT",
         "the user interrupts the next statement that contains TEXT, where the window offers it",
         steps::interrupt},
    Step{"sql", 1, 1, "STATEMENT", "runs a statement on a connection of its own", steps::sql},
    Step{"print", 1, 3, "CONTROL | GRID FIRST [LAST] | host",
         "prints what the user sees; in a grid * is locked, ~ unused, ? not found, + in order, ! "
         "incomplete",
         steps::print},
    Step{"expect", 2, any,
         "CONTROL [enabled|visible|editable|required|known|hint|focused|caption|row|rows|status] = "
         "VALUE | "
         "BAR BUTTON enabled = VALUE | BAR VIEW changed = VALUE | SHEET line = TEXT | "
         "GRID FIELD ticked = all|some|none | "
         "GRID ROW FIELD = VALUE | sql STATEMENT = VALUE | "
         "host PROPERTY = VALUE | message TEXT | no message | copied TEXT | notice TEXT | no "
         "notice [TEXT] | "
         "refused STEP...",
         "checks", steps::expect},
};

}  // namespace

std::span<const Step> stepTable() {
  return table;
}

void runStep(Player& player, const Words& words) {
  const auto* const step = std::find_if(table.begin(), table.end(),
                                        [&](const Step& s) { return s.name == words.front(); });
  if (step == table.end()) throw StepError("unknown step \"" + words.front() + "\"");
  const Words arguments(words.begin() + 1, words.end());
  if (arguments.size() < step->least || arguments.size() > step->most) {
    throw StepError("wrong number of arguments, use: " + std::string(step->name) +
                    (step->arguments.empty() ? "" : " ") + std::string(step->arguments));
  }
  step->run(player, arguments);
}

namespace steps {

bool isNumber(const std::string& text) {
  return wholeNumberIn(text).has_value();
}

std::int32_t toNumber(const std::string& text) {
  const auto number = wholeNumberIn(text);
  if (!number) throw StepError("\"" + text + "\" is not a number");
  return *number;
}

bool toFlag(const std::string& text) {
  if (text == "on" || text == "true" || text == "1") return true;
  if (text == "off" || text == "false" || text == "0") return false;
  throw StepError("\"" + text + "\" is neither on nor off");
}

}  // namespace steps

}  // namespace kebu::workbench
