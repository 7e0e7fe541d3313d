#pragma once

#include <string>
#include <string_view>

namespace kebu::windows {

// Text is UTF-8 inside and UTF-16 at Windows' doors. What is no valid text
// comes out with replacement characters, never as an error.

std::wstring toWide(std::string_view text);
std::string toUtf8(std::wstring_view text);
/// In the system's ANSI code page, as the debugger's output takes it.
std::string toAnsi(std::string_view text);

}  // namespace kebu::windows
