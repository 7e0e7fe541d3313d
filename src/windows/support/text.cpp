#include "windows/support/text.h"

#include <algorithm>
#include <type_traits>

#include "windows/support/windows_api.h"

namespace kebu::windows {

namespace {

std::string toCodePage(std::wstring_view text, UINT codePage) {
  if (text.empty()) return {};
  const int size = static_cast<int>(text.size());
  const int length =
      WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(codePage, 0, text.data(), size, result.data(), length, nullptr, nullptr);
  return result;
}

/// ASCII is converted without a call of the system; most texts are ASCII.
template <class Char>
bool isAscii(std::basic_string_view<Char> text) {
  return std::ranges::all_of(
      text, [](Char c) { return static_cast<std::make_unsigned_t<Char>>(c) < 0x80; });
}

}  // namespace

std::wstring toWide(std::string_view text) {
  if (isAscii(text)) return {text.begin(), text.end()};
  const int size = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring result(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), length);
  return result;
}

std::string toUtf8(std::wstring_view text) {
  if (isAscii(text)) return {text.begin(), text.end()};
  return toCodePage(text, CP_UTF8);
}

std::string toAnsi(std::string_view text) {
  return toCodePage(toWide(text), CP_ACP);
}

bool fitsAnsi(std::string_view text) {
  if (isAscii(text) || GetACP() == CP_UTF8) return true;
  const std::wstring wide = toWide(text);
  std::string bytes(wide.size() * 4, '\0');  // of the longest code pages
  BOOL isReplaced = FALSE;
  const int written =
      WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), static_cast<int>(wide.size()),
                          bytes.data(), static_cast<int>(bytes.size()), nullptr, &isReplaced);
  return written > 0 && isReplaced == FALSE;
}

}  // namespace kebu::windows
