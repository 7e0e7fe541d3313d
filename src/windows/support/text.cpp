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

// A half of a surrogate pair that stands alone is no character, but UTF-16 texts may hold one. The
// system would replace it; here it has the three bytes that UTF-8 would give it, so that it comes
// back as it was.

constexpr std::size_t bytesOfHalf = 3;

bool isHigh(wchar_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLow(wchar_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Where the first half that stands alone is, from a place on; the text's size for none.
std::size_t findHalf(std::wstring_view text, std::size_t from) {
  for (; from < text.size(); ++from) {
    if (isHigh(text[from]) && from + 1 < text.size() && isLow(text[from + 1])) {
      ++from;
    } else if (isHigh(text[from]) || isLow(text[from])) {
      break;
    }
  }
  return from;
}

std::size_t findHalf(std::string_view text, std::size_t from) {
  const auto isBetween = [&](std::size_t at, unsigned char first) {
    const auto byte = static_cast<unsigned char>(text[at]);
    return byte >= first && byte <= 0xBF;
  };
  for (; from + bytesOfHalf <= text.size(); ++from) {
    if (text[from] == '\xED' && isBetween(from + 1, 0xA0) && isBetween(from + 2, 0x80)) return from;
  }
  return text.size();
}

std::string utf8OfHalf(wchar_t half) {
  return {'\xED', static_cast<char>(0x80 | (half >> 6 & 0x3F)),
          static_cast<char>(0x80 | (half & 0x3F))};
}

wchar_t halfIn(std::string_view bytes) {
  return static_cast<wchar_t>(0xD000 | (bytes[1] & 0x3F) << 6 | (bytes[2] & 0x3F));
}

std::wstring wideOf(std::string_view text) {
  if (text.empty()) return {};
  const int size = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring result(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), length);
  return result;
}

}  // namespace

std::wstring toWide(std::string_view text) {
  if (isAscii(text)) return {text.begin(), text.end()};
  std::wstring result;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t half = findHalf(text, from);
    result += wideOf(text.substr(from, half - from));
    if (half < text.size()) result += halfIn(text.substr(half, bytesOfHalf));
    from = half + bytesOfHalf;
  }
  return result;
}

std::string toUtf8(std::wstring_view text) {
  if (isAscii(text)) return {text.begin(), text.end()};
  std::string result;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t half = findHalf(text, from);
    result += toCodePage(text.substr(from, half - from), CP_UTF8);
    if (half < text.size()) result += utf8OfHalf(text[half]);
    from = half + 1;
  }
  return result;
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
