#include "workbench/player/steps.h"

namespace kebu::workbench::steps {

void page(Player& player, const Words& arguments) {
  player.stage().hands.openPage(toNumber(arguments[0]));
}

void press(Player& player, const Words& arguments) {
  player.stage().hands.press(arguments[0], arguments[1]);
}

void click(Player& player, const Words& arguments) {
  player.stage().hands.clickButton(arguments[0]);
}

void type(Player& player, const Words& arguments) {
  player.stage().hands.type(arguments[0], arguments[1]);
}

void choose(Player& player, const Words& arguments) {
  player.stage().hands.choose(arguments[0], arguments[1]);
}

void tick(Player& player, const Words& arguments) {
  player.stage().hands.tick(arguments[0], toFlag(arguments[1]));
}

void row(Player& player, const Words& arguments) {
  player.stage().hands.selectRow(arguments[0], toNumber(arguments[1]));
}

void edit(Player& player, const Words& arguments) {
  const std::string& text = arguments[3];
  player.stage().hands.edit(arguments[0], toNumber(arguments[1]), arguments[2],
                            text == "NULL" ? Value(Null{}) : Value(text));
}

void tickCell(Player& player, const Words& arguments) {
  player.stage().hands.tickCell(arguments[0], toNumber(arguments[1]), arguments[2]);
}

void tickAll(Player& player, const Words& arguments) {
  player.stage().hands.tickAll(arguments[0], arguments[1], toFlag(arguments[2]));
}

namespace {

std::optional<std::int32_t> rowAfter(const Words& arguments, std::size_t count) {
  if (arguments.size() <= count) return std::nullopt;
  return toNumber(arguments[count]);
}

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
    throw StepError("look-ups of a query editor cannot be played: there is no such control");
  }
}

void condition(Player& /*player*/, const Words& /*arguments*/) {
  throw StepError("conditions of a query editor cannot be played: there is no such control");
}

void picture(Player& player, const Words& arguments) {
  player.stage().hands.takePicture(arguments[0]);
}

}  // namespace kebu::workbench::steps
