#include "tests/walk/random_user.h"

#include <algorithm>

#include "common/convert.h"
#include "controls/notice_list.h"
#include "controls/query_operators.h"
#include "controls/visit.h"

namespace kebu::tests {

using namespace controls;
using workbench::Words;

namespace {

/// Texts that a person might enter, and those that nobody should.
constexpr const char* texts[] = {
    "",
    "0",
    "1",
    "2",
    "3",
    "-1",
    "12,5",
    "12.5",
    "1.234,5",
    "99999",
    "1e3",
    "GOLD",
    "VER",
    "A12",
    "B2B",
    "abc",
    "à€😀",
    "'",
    "''",
    "%_[",
    "O'Neil",
    "; --",
    "1072",
    "  vuoto  ",
    "\"",
    "\\",
    "NULL",
    "31/2/26",
    "29/02/2028",
    "+7",
    "1072;CX",
    "PD18_X",
    "\x01",
    "-0",
    "0,0001",
    "00000000000000000000000000000001",
    "9999999999999999999999999999999",
    "2147483648",
    "32768",
};

/// Pieces of statements that a fault waits for, besides those of the statements seen.
constexpr const char* pieces[] = {
    "SELECT", "select", "INSERT", "UPDATE", "update", "MERGE", "DELETE", "DROP", "exec",   "EXEC",
    "GM03",   "GM04",   "GM57",   "GM61",   "GM19",   "CG44",  "MG66",   "into", "##temp", " "};

constexpr const char* rights[] = {"CanInsert", "CanUpdate", "CanDelete"};
constexpr const char* services[] = {"decodes", "environment", "filters",  "layout",
                                    "log",     "lookups",     "messages", "script"};

/// A part of a text without line ends, so that a scenario can contain it.
std::string partOf(const std::string& text, Random& random) {
  constexpr std::size_t longest = 24;
  if (text.empty()) return "";
  const std::size_t from = random.below(text.size());
  const std::string part = text.substr(from, 1 + random.below(longest));
  return trim(part.substr(0, part.find_first_of("\r\n")));
}

/// Nobody has a working table of that name again.
bool namesWorkingTable(const std::string& text) {
  return text.find("##") != std::string::npos || text.find_first_of('#') != std::string::npos;
}

}  // namespace

std::string RandomUser::number(std::size_t count) {
  // One beyond either end, too.
  return std::to_string(random_.below(count + 2));
}

std::string RandomUser::text() {
  if (!seen_.empty() && random_.oneIn(2)) return random_.of(seen_);
  if (random_.oneIn(40)) return std::string(1 + random_.below(400), 'x');
  return random_.of(texts);
}

std::optional<std::int32_t> RandomUser::row(std::int32_t rows) {
  if (rows == 0 || random_.oneIn(5)) return std::nullopt;
  return static_cast<std::int32_t>(random_.below(static_cast<std::size_t>(rows))) + 1;
}

msgbox::Answer RandomUser::answer(const workbench::ShownMessage& box) {
  constexpr std::size_t mostBoxes = 12;
  // Somebody who always answers Retry would never get on.
  if (++boxes_ > mostBoxes) return workbench::wayOut(box.style);
  const auto buttons = workbench::buttonsOf(box.style);
  return buttons[random_.below(buttons.size())];
}

Words RandomUser::beforeOpening() {
  if (kind_.faults && preparations_ > 0) {
    --preparations_;
    switch (random_.below(5)) {
      case 0:
        return {"without", random_.of(services)};
      case 1:
        return {"refuse", "tsOpen"};
      case 2:
        return {"set", random_.of(rights), random_.oneIn(2) ? "on" : "off"};
      case 3:
        isModal_ = random_.oneIn(2);
        return {"set", "WindowModal", isModal_ ? "on" : "off"};
      default:
        return {random_.oneIn(3) ? "lose" : "fail", random_.of(pieces), number(3)};
    }
  }
  return {"open"};
}

Words RandomUser::fault(const Moment& moment) {
  if (random_.oneIn(6)) {
    isServerAway_ = true;
    return {"server", "off"};
  }
  std::string text = random_.of(pieces);
  if (!moment.statements.empty() && !random_.oneIn(3)) {
    const std::string part = partOf(random_.of(moment.statements), random_);
    if (!part.empty() && !namesWorkingTable(part)) text = part;
  }
  if (random_.oneIn(6)) {
    isServerAway_ = true;
    return {"server", "off", text};
  }
  return {random_.oneIn(3) ? "lose" : "fail", text, std::to_string(1 + random_.below(3))};
}

Words RandomUser::atHost() {
  switch (random_.below(kind_.faults ? 6 : 2)) {
    case 0:
      return {"close"};
    case 1:
      // Nobody can go to another window while a modal one is open.
      if (kind_.windows > 1 && !isModal_) return {"window", std::to_string(1 + random_.below(2))};
      return {"activate"};
    case 2:
      return {"refuse", "tsClose"};
    case 3:
      return {"without", "filters"};
    default:
      return {"set", random_.of(rights), random_.oneIn(3) ? "off" : "on"};
  }
}

std::optional<Words> RandomUser::next(const Moment& moment) {
  if (made_ >= kind_.gestures) return std::nullopt;
  ++made_;
  boxes_ = 0;
  if (!moment.isOpen) {
    const Words words = beforeOpening();
    if (words.front() == "open") preparations_ = static_cast<int>(random_.below(3));
    return words;
  }
  if (isServerAway_ && random_.oneIn(6)) {
    isServerAway_ = false;
    return Words{"server", "on"};
  }
  if (kind_.faults && random_.oneIn(20)) return fault(moment);
  if (!moment.front) return Words{"close"};
  // Only the window itself can be gone from, not a dialog that is open in it.
  if (moment.front->isNamed("FRMKB_ANAGRAFICA") && random_.oneIn(40)) return atHost();
  return onControl(*moment.front);
}

Words RandomUser::onControl(Form& form) {
  std::vector<Control*> controls = form.controls();
  // Most gestures are possible ones; some are made where nobody could make them.
  if (!random_.oneIn(20)) {
    std::erase_if(controls, [](const Control* control) { return !control->isReachable(); });
  }
  if (controls.empty()) return {"activate"};
  // Saving, giving up and changing the page are what the rest is for.
  if (random_.oneIn(5)) {
    std::vector<Control*> bars = controls;
    std::erase_if(bars, [](const Control* c) { return !as<NavigatorBar>(*c) && !as<SideBar>(*c); });
    if (!bars.empty()) controls = bars;
  }
  Control& control = *random_.of(controls);
  const std::string name = control.Name();
  return visit(
      control,
      Overloaded{
          [&](Button&) {
            return Words{"click", name};
          },
          [&](CheckBox&) {
            return Words{"tick", name, random_.oneIn(2) ? "on" : "off"};
          },
          [&](ComboBox& combo) {
            if (combo.rows().empty() || random_.oneIn(15)) return Words{"choose", name, text()};
            return Words{"choose", name, toText(random_.of(combo.rows()).code)};
          },
          [&](EditBox& box) {
            if (!box.text().empty()) seen_.push_back(box.text());
            if (box.hasLookup() && random_.oneIn(2)) return Words{"lookup", name};
            return Words{"type", name, text()};
          },
          [&](NavigatorBar& bar) {
            if (random_.oneIn(4)) return Words{"changes", name};
            return Words{"press", name, random_.of(bar.buttons()).key};
          },
          [&](NoticeList& list) {
            if (list.notices().empty()) return Words{"refresh"};
            return Words{"notice", random_.of(list.notices()).text.substr(0, 20)};
          },
          [&](SideBar& bar) {
            if (bar.links().empty()) return Words{"refresh"};
            return Words{"page", std::to_string(random_.of(bar.links()).view)};
          },
          [&](Sheet&) {
            return Words{"copy", name, random_.oneIn(2) ? "text" : "file"};
          },
          [&](QueryEditor& editor) {
            if (editor.fieldCount() == 0) return Words{"refresh"};
            const auto field = random_.below(editor.fieldCount());
            const auto& operators = editor.row(field).op.rows();
            Words words{"condition", name, editor.row(field).op.caption(),
                        operators.empty() ? "=" : toText(random_.of(operators).code)};
            const auto op = operatorByCode(words.back());
            const std::size_t most = !op ? 0
                                         : (*op == QueryOperator::OneOf
                                                ? 4
                                                : static_cast<std::size_t>(traitsOf(*op).values));
            for (std::size_t i = 0; i < most && !random_.oneIn(4); ++i) words.push_back(text());
            return words;
          },
          [&](QueryGrid& grid) {
            const auto rows = static_cast<std::size_t>(grid.rowCount());
            if (grid.columns().empty() || random_.oneIn(8)) return Words{"row", name, number(rows)};
            const auto& columns = grid.columns();
            const QueryGrid::Column& column = random_.of(columns);
            const std::string row = number(rows);
            switch (column.kind) {
              case ColumnKind::Check:
                if (random_.oneIn(6)) {
                  return Words{"tick-all", name, column.field, random_.oneIn(2) ? "on" : "off"};
                }
                return Words{"tick-cell", name, row, column.field};
              case ColumnKind::ValueList:
                if (!column.items.empty() && !random_.oneIn(8)) {
                  return Words{"edit", name, row, column.field,
                               std::to_string(random_.of(column.items).first)};
                }
                break;
              case ColumnKind::Lookup:
                if (random_.oneIn(2)) return Words{"lookup", name, row, column.field};
                break;
              default:
                break;
            }
            return Words{"edit", name, row, column.field, text()};
          },
          [&](const OneOf<Form, GroupBox, Label, MdiContainer, ProgressBar, RecordFrame,
                          ResizeManager, StatusBar, TitleBar> auto&) {
            return random_.oneIn(4) ? Words{"activate"} : Words{"refresh"};
          },
      });
}

}  // namespace kebu::tests
