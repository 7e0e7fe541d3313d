#include "common/decimal.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "common/error.h"
#include "common/uint192.h"

namespace kebu {
namespace {

void requireScale(int scale) {
  if (scale < 0 || scale > Decimal::maxScale) throw RuntimeError::invalidCall();
}

/// A result before it is made to fit: a whole number, its scale, and what is
/// known of the digits behind its last one.
struct Digits {
  UInt192 whole;
  int scale = 0;
  std::uint32_t next = 0;  ///< the digit behind the last one
  bool more = false;       ///< whether any digit behind `next` is not zero

  bool fits() const { return whole.fits96() && scale <= Decimal::maxScale; }

  void append(std::uint32_t digit) {
    whole.multiplyAdd(10, digit);
    ++scale;
  }

  void drop() {
    more = more || next != 0;
    next = whole.divide(10);
    --scale;
  }

  void setScale(int target) {
    while (scale > target) drop();
    while (scale < target && whole.fits96()) append(0);
  }

  void round(bool up) {
    if (up) whole += UInt192(1);
    next = 0;
    more = false;
  }
  void roundHalfToEven() { round(next > 5 || (next == 5 && (more || whole.isOdd()))); }
  void roundHalfAway() { round(next >= 5); }

  Decimal toDecimal(bool negative) {
    while (!fits()) {
      if (scale <= 0) throw RuntimeError::overflow();
      drop();
    }
    roundHalfToEven();
    // Rounding up 2^96 - 1 gives a number one bit too long.
    return fits() ? Decimal(whole.low96(), scale, negative) : toDecimal(negative);
  }
};

Digits digitsOf(const Decimal& value) {
  return {UInt192(value.mantissa()), value.scale()};
}

Digits digitsAt(const Decimal& value, int scale) {
  requireScale(scale);
  Digits digits = digitsOf(value);
  digits.setScale(scale);
  return digits;
}

/// The whole numbers of both at their greater scale: at most 96 + 94 bits.
struct Aligned {
  UInt192 a;
  UInt192 b;
  int scale;

  Aligned(const Decimal& x, const Decimal& y)
      : a(x.mantissa()), b(y.mantissa()), scale(std::max(x.scale(), y.scale())) {
    for (int i = x.scale(); i < scale; ++i) a.multiplyAdd(10, 0);
    for (int i = y.scale(); i < scale; ++i) b.multiplyAdd(10, 0);
  }
};

Decimal::Mantissa mantissaOf(std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  const std::uint64_t magnitude = value < 0 ? 0 - bits : bits;
  return {static_cast<std::uint32_t>(magnitude), static_cast<std::uint32_t>(magnitude >> 32), 0};
}

/// The signed number, when it lies between -limit - 1 and limit.
template <class Integer>
std::optional<Integer> narrowed(const UInt192& whole, bool negative) {
  constexpr auto limit = static_cast<std::uint64_t>(std::numeric_limits<Integer>::max());
  if (!whole.fits64() || whole.low64() > limit + (negative ? 1 : 0)) return std::nullopt;
  return static_cast<Integer>(negative ? 0 - whole.low64() : whole.low64());
}

template <class Integer>
Integer nearest(const Decimal& value) {
  const Decimal whole = value.scale() == 0 ? value : value.rounded(0);
  const auto result = narrowed<Integer>(UInt192(whole.mantissa()), whole.isNegative());
  if (!result) throw RuntimeError::overflow();
  return *result;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

Decimal::Decimal(const Mantissa& mantissa, int scale, bool negative)
    : mantissa_(mantissa),
      scale_(static_cast<std::uint8_t>(scale)),
      negative_(negative && mantissa != Mantissa{}) {
  requireScale(scale);
}

Decimal::Decimal(std::int64_t whole) : Decimal(mantissaOf(whole), 0, whole < 0) {}

Decimal Decimal::scaled(std::int64_t unscaled, int scale) {
  return {mantissaOf(unscaled), scale, unscaled < 0};
}

std::optional<Decimal> Decimal::parse(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view whole = text.substr(0, point);
  const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
  if (whole.empty() || (fraction.empty() && point < text.size())) return std::nullopt;
  if (!std::all_of(whole.begin(), whole.end(), isDigit)) return std::nullopt;
  if (!std::all_of(fraction.begin(), fraction.end(), isDigit)) return std::nullopt;

  Digits digits;
  for (const char c : whole) {
    if (!digits.whole.fits96()) throw RuntimeError::overflow();
    digits.whole.multiplyAdd(10, static_cast<std::uint32_t>(c - '0'));
  }
  for (const char c : fraction) {
    if (digits.fits()) {
      digits.append(static_cast<std::uint32_t>(c - '0'));
    } else {
      digits.more = digits.more || c != '0';
    }
  }
  return digits.toDecimal(negative);
}

std::string Decimal::toString() const {
  std::string digits;  // the last one first
  UInt192 rest(mantissa_);
  while (!rest.isZero()) digits += static_cast<char>('0' + rest.divide(10));
  const std::size_t fraction = scale_;
  if (digits.size() <= fraction) digits.resize(fraction + 1, '0');
  if (fraction > 0) digits.insert(fraction, 1, '.');
  if (negative_) digits += '-';
  std::reverse(digits.begin(), digits.end());
  return digits;
}

std::string Decimal::toShortestString(char point) const {
  std::string text = toString();
  const std::size_t at = text.find('.');
  if (at == std::string::npos) return text;
  text[at] = point;
  const std::size_t last = text.find_last_not_of('0');
  text.erase(last == at ? at : last + 1);
  return text;
}

Decimal Decimal::rounded(int scale) const {
  return digitsAt(*this, scale).toDecimal(negative_);
}

Decimal Decimal::roundedAway(int scale) const {
  Digits digits = digitsAt(*this, scale);
  digits.roundHalfAway();
  return digits.toDecimal(negative_);
}

Decimal Decimal::truncated(int scale) const {
  Digits digits = digitsAt(*this, scale);
  digits.round(false);
  return digits.toDecimal(negative_);
}

std::int32_t Decimal::toInt32() const {
  return nearest<std::int32_t>(*this);
}
std::int64_t Decimal::toInt64() const {
  return nearest<std::int64_t>(*this);
}

std::optional<std::int64_t> Decimal::unscaledAt(int scale) const {
  const Digits digits = digitsAt(*this, scale);
  if (digits.scale != scale || digits.next != 0 || digits.more) return std::nullopt;
  return narrowed<std::int64_t>(digits.whole, negative_);
}

Decimal operator+(const Decimal& a, const Decimal& b) {
  Aligned both(a, b);
  bool negative = a.isNegative();
  if (a.isNegative() == b.isNegative()) {
    both.a += both.b;
  } else {
    if (both.a < both.b) {
      std::swap(both.a, both.b);
      negative = !negative;
    }
    both.a -= both.b;
  }
  return Digits{both.a, both.scale}.toDecimal(negative);
}

Decimal operator-(const Decimal& a, const Decimal& b) {
  return a + -b;
}

Decimal operator*(const Decimal& a, const Decimal& b) {
  Digits digits{UInt192::product(a.mantissa(), b.mantissa()), a.scale() + b.scale()};
  return digits.toDecimal(a.isNegative() != b.isNegative());
}

Decimal operator/(const Decimal& a, const Decimal& b) {
  if (b.isZero()) throw RuntimeError::divisionByZero();
  const UInt192 divisor(b.mantissa());
  Digits quotient = digitsOf(a);
  quotient.scale -= b.scale();
  UInt192 remainder = quotient.whole.divide(divisor);
  // Digit by digit as on paper, until it comes out or no further digit fits.
  while (quotient.scale < 0 || (!remainder.isZero() && quotient.fits())) {
    remainder.multiplyAdd(10, 0);
    std::uint32_t digit = 0;
    for (; remainder >= divisor; ++digit) remainder -= divisor;
    quotient.append(digit);
  }
  quotient.more = !remainder.isZero();
  return quotient.toDecimal(a.isNegative() != b.isNegative());
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
  if (a.isNegative() != b.isNegative()) {
    return a.isNegative() ? std::strong_ordering::less : std::strong_ordering::greater;
  }
  const auto ofMagnitudes = [](const Decimal& x, const Decimal& y) {
    if (x.scale() == y.scale()) return UInt192(x.mantissa()) <=> UInt192(y.mantissa());
    const Aligned both(x, y);
    return both.a <=> both.b;
  };
  return a.isNegative() ? ofMagnitudes(b, a) : ofMagnitudes(a, b);
}

}  // namespace kebu
