#pragma once

#include "controls/form.h"
#include "windows/views/layout/page_layout.h"

namespace kebu::windows::layout {

/// The window around its pages: side bar, title, navigator bars, status bar.
struct FrameLayout {
  Placements bars;
  Rect page;  ///< what is left for the page
};

FrameLayout placeFrame(const controls::Form& form, const Metrics& metrics, const Rect& area);

}  // namespace kebu::windows::layout
