#pragma once

#include <vector>

#include "controls/form.h"
#include "windows/views/layout/page_layout.h"

namespace kebu::windows::layout {

/// The buttons of a dialog, a form without a side bar: those that stand in no group.
std::vector<const controls::Button*> dialogButtons(const controls::Form& form);

/// The places of the side bar, title, navigator bars and status bar of a window, and of a dialog's
/// buttons at its foot.
struct FrameLayout {
  Placements bars;
  Rect page;  ///< the room that they leave
};

FrameLayout placeFrame(const controls::Form& form, const Metrics& metrics, const Rect& area);

}  // namespace kebu::windows::layout
