#include <algorithm>

#include "controls/query_editor.h"
#include "workbench/player/steps.h"

namespace kebu::workbench::steps {

using controls::QueryEditor;
using controls::RangeEnd;

void edit(Player& player, const Words& arguments) {
  const std::string& text = arguments[3];
  player.stage().hands.edit(arguments[0], toNumber(arguments[1]), arguments[2],
                            text == "NULL" ? Value(Null{}) : Value(text));
}

void find(Player& player, const Words& arguments) {
  player.stage().hands.find(arguments[0], arguments[1], arguments.size() > 2 ? arguments[2] : "");
}

void findNext(Player& player, const Words& arguments) {
  player.stage().hands.findNext(arguments[0], false);
}

void findPrevious(Player& player, const Words& arguments) {
  player.stage().hands.findNext(arguments[0], true);
}

void copy(Player& player, const Words& arguments) {
  Hands& hands = player.stage().hands;
  if (arguments[1] == "text" || arguments[1] == "file") {
    player.keepCopied(hands.copySheet(arguments[0], arguments[1] == "file"));
    return;
  }
  static constexpr std::pair<const char*, CopiedPart> parts[] = {{"cell", CopiedPart::Cell},
                                                                 {"row", CopiedPart::Row},
                                                                 {"all", CopiedPart::All},
                                                                 {"csv", CopiedPart::Csv}};
  for (const auto& [name, part] : parts) {
    if (arguments[1] == name) {
      player.keepCopied(hands.copy(arguments[0], part));
      return;
    }
  }
  throw StepError("\"" + arguments[1] +
                  "\" is no part of a grid (cell, row, all, csv) or of a sheet (text, file)");
}

namespace {

std::optional<std::int32_t> rowAfter(const Words& arguments, std::size_t count) {
  if (arguments.size() <= count) return std::nullopt;
  return toNumber(arguments[count]);
}

/// The number of a query editor's field, from 1.
std::size_t fieldOf(Hands& hands, const std::string& editor, const std::string& caption) {
  const std::vector<ItemView> fields = hands.look(editor, {}).items;
  const auto at = std::find_if(fields.begin(), fields.end(),
                               [&](const ItemView& field) { return field.text == caption; });
  if (at == fields.end()) throw StepError(editor + " has no field \"" + caption + "\"");
  return static_cast<std::size_t>(at - fields.begin()) + 1;
}

RangeEnd toEnd(const std::string& text) {
  if (text != "1" && text != "2") throw StepError("\"" + text + "\" is no end of a range: 1 or 2");
  return text == "1" ? RangeEnd::First : RangeEnd::Second;
}

constexpr std::string_view pressableKeys[] = {"F3",      "F8",       "F9",    "F10", "F11",
                                              "Ctrl+F1", "Ctrl+F10", "Enter", "Esc"};

}  // namespace

void lookup(Player& player, const Words& arguments) {
  Hands& hands = player.stage().hands;
  if (arguments.size() <= 2) {
    player.playLookup([&] { hands.lookup(arguments[0]); }, rowAfter(arguments, 1));
  } else if (isNumber(arguments[1])) {
    const std::int32_t row = toNumber(arguments[1]);
    player.playLookup([&] { hands.lookupCell(arguments[0], row, arguments[2]); },
                      rowAfter(arguments, 3));
  } else {
    const std::string box = QueryEditor::valueName(
        arguments[0], fieldOf(hands, arguments[0], arguments[1]), toEnd(arguments[2]));
    player.playLookup([&] { hands.lookup(box); }, rowAfter(arguments, 3));
  }
}

void keys(Player& player, const Words& arguments) {
  for (const std::string& key : arguments) {
    if (std::ranges::find(pressableKeys, key) == std::end(pressableKeys)) {
      throw StepError("\"" + key + "\" is no key of this step");
    }
  }
  player.stage().hands.pressKeys(arguments);
}

void condition(Player& player, const Words& arguments) {
  Hands& hands = player.stage().hands;
  const std::string& editor = arguments[0];
  const std::string& op = arguments[2];
  const auto known = controls::operatorByCode(op);
  if (!known) throw StepError("\"" + op + "\" is no operator of a query editor");
  const std::vector<std::string> values(arguments.begin() + 3, arguments.end());
  const bool isList = *known == QueryOperator::OneOf;
  const auto most = static_cast<std::size_t>(controls::traitsOf(*known).values);
  const bool takesNone = *known == QueryOperator::Any;
  if (!isList && values.size() > (takesNone ? 0 : most)) {
    throw StepError("too many values for the operator " + op);
  }
  const std::size_t field = fieldOf(hands, editor, arguments[1]);
  hands.choose(QueryEditor::operatorName(editor, field), op);
  if (isList) {
    hands.type(QueryEditor::valueName(editor, field, RangeEnd::First), controls::joinList(values));
    return;
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    const RangeEnd end = i == 0 ? RangeEnd::First : RangeEnd::Second;
    hands.type(QueryEditor::valueName(editor, field, end), values[i]);
  }
}

void picture(Player& player, const Words& arguments) {
  Hands& hands = player.stage().hands;
  if (arguments.size() == 1) return hands.takePicture(arguments[0]);
  if (arguments[1] != "next") throw StepError("a picture is of the window, or of the next box");
  hands.takePictureOfNext(arguments[0]);
}

}  // namespace kebu::workbench::steps
