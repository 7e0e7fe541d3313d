#include "workbench/player/result_text.h"
#include "workbench/player/steps.h"

namespace kebu::workbench::steps {

void open(Player& player, const Words& /*arguments*/) {
  if (player.stage().host.isOpen()) throw StepError("the window is open already");
  player.atHost([](StandInHost& host) { host.open(); });
  player.stage().hands.windowOpened(player.stage().host.window());
}

void window(Player& player, const Words& arguments) {
  const std::int32_t number = toNumber(arguments[0]);
  player.stage().host.use(number);
  if (player.stage().host.isOpen()) player.stage().hands.toFront(number);
}

void close(Player& player, const Words& /*arguments*/) {
  if (!player.stage().host.isOpen()) throw StepError("no window is open");
  bool closed = false;
  player.atHost([&](StandInHost& host) { closed = host.close(); });
  player.out() << "  " << (closed ? "true" : "false") << '\n';
}

void set(Player& player, const Words& arguments) {
  const HostProperty* const property = findHostProperty(arguments[0]);
  if (!property) throw StepError("the host knows no property " + arguments[0]);
  if (!property->set) throw StepError(arguments[0] + " cannot be set to a text");
  player.atHost([&](StandInHost& host) { host.set(*property, arguments[1]); });
}

void without(Player& player, const Words& arguments) {
  if (!GlobalServices::serviceNames().contains(arguments[0])) {
    throw StepError("the host has no service \"" + arguments[0] + "\"");
  }
  player.stage().host.services().withhold(arguments[0]);
}

void refuse(Player& player, const Words& arguments) {
  player.stage().host.services().refuseNext(arguments[0]);
}

void answer(Player& player, const Words& arguments) {
  for (const std::string& name : arguments) {
    const auto answer = answerByName(name);
    if (!answer) throw StepError("no message box has a button \"" + name + "\"");
    player.answers().queue(*answer);
  }
}

namespace {

/// How often a fault happens: the second argument, once without it.
std::int32_t timesOf(const Words& arguments) {
  const std::int32_t times = arguments.size() > 1 ? toNumber(arguments[1]) : 1;
  if (times < 1) throw StepError("a statement fails at least once");
  return times;
}

}  // namespace

void fail(Player& player, const Words& arguments) {
  player.stage().faults.add(arguments[0], timesOf(arguments));
}

void lose(Player& player, const Words& arguments) {
  player.stage().faults.loseAnswer(arguments[0], timesOf(arguments));
}

void server(Player& player, const Words& arguments) {
  StatementFaults& faults = player.stage().faults;
  const bool on = toFlag(arguments[0]);
  if (on && arguments.size() > 1) throw StepError("the server is back at once");
  if (on) {
    faults.startServer();
  } else {
    faults.stopServer(arguments.size() > 1 ? arguments[1] : "");
  }
}

void slow(Player& player, const Words& arguments) {
  const std::int32_t seconds = toNumber(arguments[1]);
  if (seconds < 1) throw StepError("a slow statement lasts at least a second");
  player.stage().faults.slowDown(arguments[0], seconds);
}

void interrupt(Player& player, const Words& arguments) {
  player.stage().faults.interrupt(arguments[0],
                                  [&hands = player.stage().hands] { hands.interrupt(); });
}

void sql(Player& player, const Words& arguments) {
  for (const engine::ResultSet& result : player.stage().sql(arguments[0])) {
    writeResult(player.out(), result, "  ");
  }
}

}  // namespace kebu::workbench::steps
