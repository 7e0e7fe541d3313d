#pragma once

#include <windows.h>

#include <string>

namespace kebu::workbench {

// What hands do on mouse and keyboard, as the messages that come of it.

void clickAt(HWND window, POINT point);
/// In the middle of `bounds`.
void clickOn(HWND window, const RECT& bounds);
void pressKey(HWND window, WPARAM key, int times = 1);
void typeText(HWND window, const std::wstring& text);
/// Replaces what stands in an edit control that has the focus.
void replaceText(HWND edit, const std::wstring& text);
/// Opens the list of a combo box that has the focus and takes a row of it, from 0.
void takeFromList(HWND combo, int index);
std::wstring classOf(HWND window);

}  // namespace kebu::workbench
