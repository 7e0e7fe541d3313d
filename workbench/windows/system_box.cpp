#include "workbench/windows/system_box.h"

#include <algorithm>
#include <utility>

#include "windows/support/text.h"
#include "windows/views/window/window_text.h"
#include "workbench/windows/gestures.h"

namespace kebu::workbench {

namespace {

const std::pair<LPCWSTR, std::int32_t> icons[] = {
    {IDI_ERROR, msgbox::critical},
    {IDI_QUESTION, msgbox::question},
    {IDI_WARNING, msgbox::exclamation},
    {IDI_INFORMATION, msgbox::information},
};

std::int32_t styleOfButtons(HWND box) {
  for (const auto style :
       {msgbox::okCancel, msgbox::abortRetryIgnore, msgbox::yesNoCancel, msgbox::yesNo}) {
    const auto buttons = buttonsOf(style);
    if (std::all_of(buttons.begin(), buttons.end(),
                    [&](auto button) { return GetDlgItem(box, button) != nullptr; })) {
      return style;
    }
  }
  return msgbox::okOnly;
}

/// The static controls of a box are its text and its icon.
struct Contents {
  std::wstring text;
  std::int32_t icon = 0;
};

BOOL CALLBACK readStatic(HWND window, LPARAM context) {
  auto& contents = *reinterpret_cast<Contents*>(context);
  if (classOf(window) != L"Static") return TRUE;
  const auto icon = reinterpret_cast<HICON>(SendMessageW(window, STM_GETICON, 0, 0));
  for (const auto& [name, style] : icons) {
    if (icon && icon == LoadIconW(nullptr, name)) contents.icon = style;
  }
  if (!icon) contents.text += windows::windowText(window);
  return TRUE;
}

}  // namespace

bool isSystemBox(HWND window) {
  return classOf(window) == L"#32770";
}

ShownMessage readSystemBox(HWND window) {
  Contents contents;
  EnumChildWindows(window, readStatic, reinterpret_cast<LPARAM>(&contents));
  ShownMessage box;
  box.title = windows::toUtf8(windows::windowText(window));
  box.text = windows::toUtf8(contents.text);
  box.style = styleOfButtons(window) | contents.icon;
  const auto usual = SendMessageW(window, DM_GETDEFID, 0, 0);
  const auto buttons = buttonsOf(box.style);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    if (HIWORD(usual) == DC_HASDEFID && LOWORD(usual) == buttons[i]) {
      box.style |= static_cast<std::int32_t>(i) * msgbox::defaultButton2;
    }
  }
  return box;
}

void pressSystemBox(HWND window, std::int32_t answer) {
  HWND button = GetDlgItem(window, answer);
  // Some systems name the only button of a box after its way out.
  if (!button) button = GetDlgItem(window, IDCANCEL);
  RECT bounds{};
  GetClientRect(button, &bounds);
  clickOn(button, bounds);
}

}  // namespace kebu::workbench
