#pragma once

#include "windows/views/window/window_table.h"

namespace kebu::windows {

class View;

/// The view that draws a window.
struct AttachedView {
  View* view;
  WNDPROC usual = nullptr;  ///< the procedure of a stock control, which the view's stands before
};

/// The windows that have a view. Window removes those of our own classes when they end, a view its
/// stock controls.
WindowTable<AttachedView>& attachedViews();

}  // namespace kebu::windows
