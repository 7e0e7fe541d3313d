#include "windows/views/grid/cell_tip.h"

#include <commctrl.h>

#include "windows/views/window/common_controls.h"

namespace kebu::windows {

void CellTip::create(HWND grid) {
  const CommonControls::Scope scope;
  tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0, 0,
                         0, grid, nullptr, nullptr, nullptr);
  if (!tip_) return;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = grid;
  tool.uId = reinterpret_cast<UINT_PTR>(grid);
  tool.lpszText = LPSTR_TEXTCALLBACKW;
  SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, widest);
}

void CellTip::pointerOn(std::int64_t part) {
  if (part == part_) return;
  part_ = part;
  hide();
}

void CellTip::hide() {
  if (tip_) SendMessageW(tip_, TTM_POP, 0, 0);
}

bool CellTip::notified(HWND grid, NMHDR* header) {
  if (header->hwndFrom != tip_ || header->code != TTN_GETDISPINFOW) return false;
  POINT at{};
  GetCursorPos(&at);
  ScreenToClient(grid, &at);
  text_ = textAt_(at);
  reinterpret_cast<NMTTDISPINFOW*>(header)->lpszText = text_.data();
  return true;
}

}  // namespace kebu::windows
