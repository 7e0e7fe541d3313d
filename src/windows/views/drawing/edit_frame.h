#pragma once

#include "windows/support/windows_api.h"
#include "windows/views/drawing/theme.h"

namespace kebu::windows {

/// Draws the frame of an edit control of one line in the theme's colours, and centres its text
/// between the upper and the lower edge: an edit control itself puts the text at the top, where it
/// would not stand on the line of the caption beside it. `theme` outlives the control. To be called
/// again when the control has got another font.
void frameEdit(HWND edit, const Theme& theme);
/// Draws the frame again, when the control was enabled or locked.
void redrawEditFrame(HWND edit);

}  // namespace kebu::windows
