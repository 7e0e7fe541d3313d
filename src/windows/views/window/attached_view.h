#pragma once

#include "windows/views/window/window_table.h"

namespace kebu::windows {

class View;

/// The views that draw windows. Window removes those of our own classes when they end, a view its
/// stock controls.
WindowTable<View*>& attachedViews();

}  // namespace kebu::windows
