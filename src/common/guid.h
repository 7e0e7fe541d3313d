#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace kebu {

/// A GUID in its four fields.
struct Guid {
  std::uint32_t data1 = 0;
  std::uint16_t data2 = 0;
  std::uint16_t data3 = 0;
  std::array<std::uint8_t, 8> data4{};
};

/// 32 upper-case hexadecimal digits, field by field, without separators.
std::string guidText(const Guid& guid);

}  // namespace kebu
