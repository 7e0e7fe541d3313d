#pragma once

#include <memory>

#include "windows/views/controls/view.h"

namespace kebu::windows {

/// The view that draws a control; made as a child of `parent`.
std::unique_ptr<View> makeView(ViewSite& site, controls::Control& control, HWND parent);

}  // namespace kebu::windows
