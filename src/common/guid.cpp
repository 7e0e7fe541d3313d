#include "common/guid.h"

#include <string_view>

namespace kebu {
namespace {

void appendHex(std::string& text, std::uint32_t value, int digits) {
  constexpr std::string_view symbols = "0123456789ABCDEF";
  while (digits-- > 0) text += symbols[value >> digits * 4 & 0xF];
}

}  // namespace

std::string guidText(const Guid& guid) {
  std::string text;
  appendHex(text, guid.data1, 8);
  appendHex(text, guid.data2, 4);
  appendHex(text, guid.data3, 4);
  for (const std::uint8_t byte : guid.data4) appendHex(text, byte, 2);
  return text;
}

}  // namespace kebu
