#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "workbench/player/player.h"
#include "workbench/player/step_table.h"

// The functions of the steps, one source file a group. `arguments` leaves out the step's name.
namespace kebu::workbench::steps {

// Conversions of arguments; StepError for another text.
bool isNumber(const std::string& text);
std::int32_t toNumber(const std::string& text);
bool toFlag(const std::string& text);

/// An argument of a step, as a gesture takes it.
struct Argument {
  const std::string& text;

  operator const std::string&() const { return text; }
  operator std::int32_t() const { return toNumber(text); }
  operator bool() const { return toFlag(text); }
};

template <class... Parameters>
void makeGesture(Hands& hands, void (Hands::*gesture)(Parameters...), const Words& arguments) {
  const auto make = [&]<std::size_t... place>(std::index_sequence<place...>) {
    (hands.*gesture)(Argument{arguments[place]}...);
  };
  make(std::index_sequence_for<Parameters...>());
}
/// A step that is one gesture of the hands: its arguments are those of the step.
template <auto Gesture>
void gesture(Player& player, const Words& arguments) {
  makeGesture(player.stage().hands, Gesture, arguments);
}

// host_steps.cpp
void open(Player& player, const Words& arguments);
void close(Player& player, const Words& arguments);
void window(Player& player, const Words& arguments);
void set(Player& player, const Words& arguments);
void without(Player& player, const Words& arguments);
void refuse(Player& player, const Words& arguments);
void answer(Player& player, const Words& arguments);
void fail(Player& player, const Words& arguments);
void lose(Player& player, const Words& arguments);
void server(Player& player, const Words& arguments);
void slow(Player& player, const Words& arguments);
void interrupt(Player& player, const Words& arguments);
void sql(Player& player, const Words& arguments);

// gesture_steps.cpp
void edit(Player& player, const Words& arguments);
void find(Player& player, const Words& arguments);
void findNext(Player& player, const Words& arguments);
void findPrevious(Player& player, const Words& arguments);
void copy(Player& player, const Words& arguments);
void lookup(Player& player, const Words& arguments);
void keys(Player& player, const Words& arguments);
void condition(Player& player, const Words& arguments);
void picture(Player& player, const Words& arguments);

// check_steps.cpp
void print(Player& player, const Words& arguments);
void expect(Player& player, const Words& arguments);

}  // namespace kebu::workbench::steps
