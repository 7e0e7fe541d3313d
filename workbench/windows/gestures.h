#pragma once

#include <optional>
#include <string>

#include "windows/support/windows_api.h"

namespace kebu::workbench {

// Mouse and keyboard input, as the window messages that it causes.

void clickAt(HWND window, POINT point);
/// In the middle of `bounds`.
void clickOn(HWND window, const RECT& bounds);
void pressKey(HWND window, WPARAM key, int times = 1);
void typeText(HWND window, const std::wstring& text);
/// Replaces the text of an edit control that has the focus.
void replaceText(HWND edit, const std::wstring& text);
/// Opens the list of a combo box that has the focus and takes a row of it, from 0.
void takeFromList(HWND combo, int index);
/// The position of the entry with that caption, keys aside, among those of the open context menu
/// that can be reached with the arrows; nothing when there is no such entry or it is grey.
std::optional<int> entryOfOpenMenu(const std::wstring& caption);
std::wstring classOf(HWND window);
/// What is on the clipboard; "" without a text.
std::string clipboardText();
/// Enters a name into the system's dialog for a file and takes it; false when it is no such dialog.
bool takeFileDialog(HWND dialog, const std::wstring& path);

}  // namespace kebu::workbench
