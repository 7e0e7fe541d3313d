#pragma once

#include <string>
#include <string_view>

namespace kebu::windows {

// Text is UTF-8 inside the project and UTF-16 in calls of Windows. Each UTF-16 text comes back as
// it was, even one with half of a surrogate pair. Invalid UTF-8 becomes replacement characters, not
// errors.

std::wstring toWide(std::string_view text);
std::string toUtf8(std::wstring_view text);
/// In the system's ANSI code page, which OutputDebugStringA takes.
std::string toAnsi(std::string_view text);
/// Whether that code page has every character of the text.
bool fitsAnsi(std::string_view text);

}  // namespace kebu::windows
