#include <algorithm>

#include "tests/fuzz/fuzz_target.h"

namespace kebu::tests {

bool isUtf8(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (std::size_t i = 0; i < text.size();) {
    const unsigned lead = byte(i++);
    if (lead < 0x80) continue;
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - i < static_cast<std::size_t>(more))
      return false;
    std::uint32_t code = lead & (0x3Fu >> more);
    for (int k = 0; k < more; ++k) {
      if ((byte(i) & 0xC0u) != 0x80) return false;
      code = (code << 6u) | (byte(i++) & 0x3Fu);
    }
    const std::uint32_t least = more == 3 ? 0x10000 : more == 2 ? 0x800 : 0x80;
    const bool isSurrogate = code >= 0xD800 && code < 0xE000;
    if (code < least || code > 0x10FFFF || isSurrogate) return false;
  }
  return true;
}

}  // namespace kebu::tests
