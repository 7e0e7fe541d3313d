#pragma once

#include <vector>

#include "controls/form.h"
#include "windows/views/layout/page_layout.h"

namespace kebu::windows::layout {

/// The places of the side bar, title, navigator bars and status bar of a window, and of the buttons
/// that stand in no group: on the status bar, or without one at the foot of the window.
struct FrameLayout {
  Placements bars;
  Rect page;  ///< the room that they leave
};

FrameLayout placeFrame(const controls::Form& form, const Metrics& metrics, const Rect& area);

}  // namespace kebu::windows::layout
