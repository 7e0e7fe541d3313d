#pragma once

#include <cstdint>
#include <string>

#include "workbench/player/player.h"
#include "workbench/player/step_table.h"

// The functions of the steps, one source file a group. `arguments` leaves out the step's name.
namespace kebu::workbench::steps {

// host_steps.cpp
void open(Player& player, const Words& arguments);
void close(Player& player, const Words& arguments);
void window(Player& player, const Words& arguments);
void activate(Player& player, const Words& arguments);
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
void page(Player& player, const Words& arguments);
void press(Player& player, const Words& arguments);
void changes(Player& player, const Words& arguments);
void click(Player& player, const Words& arguments);
void type(Player& player, const Words& arguments);
void choose(Player& player, const Words& arguments);
void tick(Player& player, const Words& arguments);
void row(Player& player, const Words& arguments);
void edit(Player& player, const Words& arguments);
void tickCell(Player& player, const Words& arguments);
void tickAll(Player& player, const Words& arguments);
void sort(Player& player, const Words& arguments);
void find(Player& player, const Words& arguments);
void findNext(Player& player, const Words& arguments);
void findPrevious(Player& player, const Words& arguments);
void copy(Player& player, const Words& arguments);
void lookup(Player& player, const Words& arguments);
void keys(Player& player, const Words& arguments);
void refresh(Player& player, const Words& arguments);
void details(Player& player, const Words& arguments);
void rowMenu(Player& player, const Words& arguments);
void notice(Player& player, const Words& arguments);
void condition(Player& player, const Words& arguments);
void picture(Player& player, const Words& arguments);

// check_steps.cpp
void print(Player& player, const Words& arguments);
void expect(Player& player, const Words& arguments);

// Conversions of arguments; StepError for another text.
bool isNumber(const std::string& text);
std::int32_t toNumber(const std::string& text);
bool toFlag(const std::string& text);

}  // namespace kebu::workbench::steps
