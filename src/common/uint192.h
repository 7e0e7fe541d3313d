#pragma once

#include <algorithm>
#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>

namespace kebu {

/// An unsigned whole number of 192 bits, wide enough for every intermediate
/// result of the 96-bit decimals. In 32-bit limbs, least first, so that the
/// 32-bit builds have it too.
class UInt192 {
 public:
  static constexpr std::size_t limbCount = 6;
  using Half = std::array<std::uint32_t, limbCount / 2>;

  UInt192() = default;
  explicit UInt192(std::uint64_t value)
      : limbs_{static_cast<std::uint32_t>(value), static_cast<std::uint32_t>(value >> 32)} {}
  explicit UInt192(const Half& low) { std::copy(low.begin(), low.end(), limbs_.begin()); }

  bool isZero() const { return *this == UInt192{}; }
  bool isOdd() const { return (limbs_[0] & 1) != 0; }
  bool fits96() const { return (limbs_[3] | limbs_[4] | limbs_[5]) == 0; }
  bool fits64() const { return fits96() && limbs_[2] == 0; }
  Half low96() const { return {limbs_[0], limbs_[1], limbs_[2]}; }
  std::uint64_t low64() const { return std::uint64_t{limbs_[1]} << 32 | limbs_[0]; }

  /// *this = *this * factor + addend.
  void multiplyAdd(std::uint32_t factor, std::uint32_t addend) {
    std::uint64_t carry = addend;
    for (auto& limb : limbs_) {
      carry += std::uint64_t{limb} * factor;
      limb = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  }

  /// *this = *this / divisor; the remainder is returned.
  std::uint32_t divide(std::uint32_t divisor) {
    std::uint64_t remainder = 0;
    for (std::size_t i = limbCount; i-- > 0;) {
      if (limbs_[i] == 0 && remainder == 0) continue;  // most numbers are short, and divisions slow
      remainder = remainder << 32 | limbs_[i];
      limbs_[i] = static_cast<std::uint32_t>(remainder / divisor);
      remainder %= divisor;
    }
    return static_cast<std::uint32_t>(remainder);
  }

  UInt192& operator+=(const UInt192& other) {
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < limbCount; ++i) {
      carry += std::uint64_t{limbs_[i]} + other.limbs_[i];
      limbs_[i] = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
    return *this;
  }

  UInt192& operator-=(const UInt192& other) {
    std::uint64_t borrow = 0;
    for (std::size_t i = 0; i < limbCount; ++i) {
      const std::uint64_t difference = std::uint64_t{limbs_[i]} - other.limbs_[i] - borrow;
      limbs_[i] = static_cast<std::uint32_t>(difference);
      borrow = difference >> 63;
    }
    return *this;
  }

  static UInt192 product(const Half& a, const Half& b) {
    UInt192 result;
    for (std::size_t i = 0; i < a.size(); ++i) {
      std::uint64_t carry = 0;
      for (std::size_t j = 0; j < b.size(); ++j) {
        carry += std::uint64_t{a[i]} * b[j] + result.limbs_[i + j];
        result.limbs_[i + j] = static_cast<std::uint32_t>(carry);
        carry >>= 32;
      }
      result.limbs_[i + b.size()] = static_cast<std::uint32_t>(carry);
    }
    return result;
  }

  /// *this = *this / divisor, a bit at a time; the remainder is returned.
  /// The divisor must be below 2^191.
  UInt192 divide(const UInt192& divisor) {
    UInt192 quotient;
    UInt192 remainder;
    for (std::size_t bit = usedLimbs() * 32; bit-- > 0;) {
      remainder.multiplyAdd(2, limbs_[bit / 32] >> bit % 32 & 1);
      if (remainder >= divisor) {
        remainder -= divisor;
        quotient.limbs_[bit / 32] |= std::uint32_t{1} << bit % 32;
      }
    }
    *this = quotient;
    return remainder;
  }

  friend bool operator==(const UInt192&, const UInt192&) = default;
  friend std::strong_ordering operator<=>(const UInt192& a, const UInt192& b) {
    return std::lexicographical_compare_three_way(a.limbs_.rbegin(), a.limbs_.rend(),
                                                  b.limbs_.rbegin(), b.limbs_.rend());
  }

 private:
  std::size_t usedLimbs() const {
    std::size_t used = limbCount;
    while (used > 0 && limbs_[used - 1] == 0) --used;
    return used;
  }

  std::array<std::uint32_t, limbCount> limbs_{};
};

}  // namespace kebu
