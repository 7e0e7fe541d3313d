#pragma once

#include <string>

#include "windows/support/windows_api.h"
#include "windows/views/drawing/theme.h"

namespace kebu::windows {

/// The looks of a push button.
struct PushButtonFace {
  std::wstring text;  ///< with "&" before its mnemonic
  std::wstring key;   ///< shown after it in a quieter colour
  bool isMain = false;
  COLORREF behind = 0;
  bool isHovered = false;   ///< the pointer is on it
  bool pointsDown = false;  ///< an arrow in place of the text
};

/// Draws a button of style BS_OWNERDRAW.
void drawPushButton(const DRAWITEMSTRUCT& item, const Theme& theme, const PushButtonFace& face);

}  // namespace kebu::windows
