#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "windows/views/window/inspection.h"

// How the windows fill in an Inspection. Texts are cut to the room that it has.
namespace kebu::windows {

template <std::size_t size>
void write(wchar_t (&target)[size], const std::wstring& text) {
  const std::size_t length = text.copy(target, size - 1);
  target[length] = L'\0';
}
void writeName(Inspection& inspection, const std::string& name);
void writeText(Inspection& inspection, const std::string& text);
void addMark(Inspection& inspection, const char* mark);
/// Fills in a window's handle, client area and state; null for none.
void describeWindow(Inspection& inspection, HWND window);

/// Which of `count` items is asked about, by its key or, without one, by its index, which is filled
/// in; nothing when there is no such item.
std::optional<std::size_t> itemAsked(
    Inspection& inspection, std::size_t count,
    const std::function<bool(std::size_t index, const std::string& key)>& hasKey);

}  // namespace kebu::windows
