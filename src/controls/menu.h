#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kebu::controls {

/// A letter that is pressed together with Ctrl, and perhaps with Shift.
struct Shortcut {
  char letter = 0;  ///< a capital; 0 for none
  bool shift = false;

  bool operator==(const Shortcut&) const = default;
};

/// A command of a context menu. Its key works without the menu, too.
struct MenuEntry {
  std::string caption;
  Shortcut key = {};
  std::function<void()> act = {};  ///< empty while it cannot be used
  bool beginsGroup = false;        ///< a line stands above it
};

using Menu = std::vector<MenuEntry>;

}  // namespace kebu::controls
