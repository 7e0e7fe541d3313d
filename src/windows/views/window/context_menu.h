#pragma once

#include <functional>

#include "controls/control.h"
#include "controls/menu.h"
#include "windows/support/windows_api.h"
#include "windows/views/window/keyboard.h"

namespace kebu::windows {

/// Shows a menu at a point of the screen and carries out what the user chooses.
void showMenu(HWND owner, POINT at, const controls::Menu& menu,
              const controls::Translator& translator);

/// What the entry with that key does; empty when no entry has it or it cannot be used.
std::function<void()> actionIn(const controls::Menu& menu, const Key& key);

}  // namespace kebu::windows
