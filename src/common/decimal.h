#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kebu {

/// An exact decimal as the Windows run time has it: a sign, a 96-bit whole
/// number and a scale of 0 to 28 digits after the point. Results that do not
/// fit are rounded half to even at the last digit that fits; a whole part that
/// does not fit raises RuntimeError 6.
class Decimal {
 public:
  static constexpr int maxScale = 28;
  /// The 96-bit whole number, its least 32 bits first.
  using Mantissa = std::array<std::uint32_t, 3>;

  Decimal() = default;
  Decimal(std::int64_t whole);  // NOLINT: a whole number is a decimal
  /// The decimal in its parts; RuntimeError 5 unless scale is 0 to 28.
  Decimal(const Mantissa& mantissa, int scale, bool negative);
  /// `unscaled` / 10^`scale`, scale 0 to 28.
  static Decimal scaled(std::int64_t unscaled, int scale);

  /// Reads "[-]digits[.digits]" with a point whatever the locale; nothing else.
  static std::optional<Decimal> parse(std::string_view text);
  /// The same form, with exactly scale() digits after the point.
  std::string toString() const;
  /// The same form with this point, and without zeros at the end of the fraction.
  std::string toShortestString(char point = '.') const;

  int scale() const { return scale_; }
  const Mantissa& mantissa() const { return mantissa_; }
  bool isZero() const { return mantissa_ == Mantissa{}; }
  bool isNegative() const { return negative_; }

  /// Rounded half to even (`rounded`) or half away from zero (`roundedAway`, as
  /// SQL Server rounds) to `scale` digits; the result has exactly that scale,
  /// or the greatest that 96 bits hold.
  Decimal rounded(int scale) const;
  Decimal roundedAway(int scale) const;
  /// Cut toward zero to `scale` digits.
  Decimal truncated(int scale) const;
  /// The whole number nearest (half to even); RuntimeError 6 when it does not fit.
  std::int32_t toInt32() const;
  std::int64_t toInt64() const;
  /// The value times 10^`scale` as a whole number, when it is one and fits.
  std::optional<std::int64_t> unscaledAt(int scale) const;

  Decimal operator-() const { return {mantissa_, scale_, !negative_}; }
  friend Decimal operator+(const Decimal& a, const Decimal& b);
  friend Decimal operator-(const Decimal& a, const Decimal& b);
  friend Decimal operator*(const Decimal& a, const Decimal& b);
  /// RuntimeError 11 when `b` is zero; up to 28 digits after the point.
  friend Decimal operator/(const Decimal& a, const Decimal& b);
  /// By value: 1.0 equals 1.00.
  friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);
  friend bool operator==(const Decimal& a, const Decimal& b) { return std::is_eq(a <=> b); }

 private:
  Mantissa mantissa_{};
  std::uint8_t scale_ = 0;
  bool negative_ = false;
};

}  // namespace kebu
