#include "workbench/ado/json_text.h"

#include <cstdint>
#include <cstdio>

namespace kebu::workbench {

namespace {

/// The length of the well-formed UTF-8 sequence at the beginning; 0 for none.
std::size_t sequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
  }
  // Overlong forms, surrogates, and what lies beyond Unicode.
  if ((first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) > 0x9F)) return 0;
  if ((first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) > 0x8F)) return 0;
  return length;
}

void appendEscaped(std::string& out, char c) {
  static constexpr std::string_view characters = "\"\\\n\r\t";
  static constexpr std::string_view letters = "\"\\nrt";
  const std::size_t at = characters.find(c);
  if (at != std::string_view::npos) {
    out += '\\';
    out += letters[at];
  } else if (static_cast<unsigned char>(c) < 0x20) {
    char code[8];
    std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(c));
    out += code;
  } else {
    out += c;
  }
}

}  // namespace

std::string jsonString(std::string_view text) {
  std::string out = "\"";
  while (!text.empty()) {
    const std::size_t length = sequenceLength(text);
    if (length == 1) {
      appendEscaped(out, text.front());
    } else if (length == 0) {
      out += "\xEF\xBF\xBD";
    } else {
      out += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return out + '"';
}

}  // namespace kebu::workbench
