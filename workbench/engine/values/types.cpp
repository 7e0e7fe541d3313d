#include "workbench/engine/values/types.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

#include "common/decimal.h"

namespace kebu::engine {
namespace {

struct KindInfo {
  const char* name = nullptr;
  int digits = 0;  ///< of an integer, as its bounds
  std::int64_t least = std::numeric_limits<std::int64_t>::min();
  std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
};

template <class Integer>
constexpr KindInfo integer(const char* name) {
  using Limits = std::numeric_limits<Integer>;
  return {name, Limits::digits10 + 1, Limits::min(), Limits::max()};
}

constexpr std::array<KindInfo, 14> kinds{{
    {"int"},  // NULL alone
    {"char"},
    {"varchar"},
    {"nchar"},
    {"nvarchar"},
    {"uniqueidentifier"},
    integer<bool>("bit"),
    integer<std::uint8_t>("tinyint"),
    integer<std::int16_t>("smallint"),
    integer<std::int32_t>("int"),
    integer<std::int64_t>("bigint"),
    {"decimal"},
    {"date"},
    {"datetime"},
}};

const KindInfo& infoOf(TypeKind kind) {
  return kinds.at(static_cast<std::size_t>(kind));
}

constexpr int maxPrecision = 38;

}  // namespace

SqlType SqlType::decimal(int precision, int scale) {
  if (precision > maxPrecision) {
    // Digits before the point are kept, and up to six after it.
    const int whole = precision - scale;
    scale = std::min(scale, std::max(maxPrecision - whole, 6));
    precision = maxPrecision;
  }
  // Decimal holds no more digits after the point.
  return {TypeKind::Decimal, precision, std::min(scale, Decimal::maxScale), 0};
}

SqlType SqlType::asDecimal() const {
  if (kind == TypeKind::Decimal) return *this;
  if (kind == TypeKind::Int && precision > 0) return {TypeKind::Decimal, precision, 0, 0};
  return {TypeKind::Decimal, std::max(infoOf(kind).digits, 1), 0, 0};
}

std::string SqlType::declaration() const {
  std::string text = infoOf(kind).name;
  if (kind == TypeKind::Decimal) {
    text += "(" + std::to_string(precision) + "," + std::to_string(scale) + ")";
  } else if (isText()) {
    text += size < 0 ? "(max)" : "(" + std::to_string(std::max(size, 1)) + ")";
  }
  return text;
}

std::int64_t SqlType::code() const {
  return static_cast<std::int64_t>(kind) | static_cast<std::int64_t>(precision) << 8 |
         static_cast<std::int64_t>(scale) << 16 | static_cast<std::int64_t>(size + 1) << 24;
}

SqlType SqlType::fromCode(std::int64_t code) {
  return {static_cast<TypeKind>(code & 0xff), static_cast<int>(code >> 8 & 0xff),
          static_cast<int>(code >> 16 & 0xff), static_cast<int>(code >> 24) - 1};
}

SqlType unify(const SqlType& a, const SqlType& b) {
  if (a.kind == TypeKind::Null) return b;
  if (b.kind == TypeKind::Null) return a;
  const SqlType& later = a.kind >= b.kind ? a : b;
  if (a.isText() && b.isText()) {
    const bool fixed = a.kind == b.kind && a.size == b.size;
    const bool wide = later.kind == TypeKind::NChar || later.kind == TypeKind::NVarChar;
    const TypeKind varying = wide ? TypeKind::NVarChar : TypeKind::VarChar;
    return {fixed ? a.kind : varying, 0, 0,
            a.size < 0 || b.size < 0 ? -1 : std::max(a.size, b.size)};
  }
  if (later.kind == TypeKind::Decimal && a.isNumber() && b.isNumber()) {
    const SqlType x = a.asDecimal();
    const SqlType y = b.asDecimal();
    const int scale = std::max(x.scale, y.scale);
    return SqlType::decimal(std::max(x.precision - x.scale, y.precision - y.scale) + scale, scale);
  }
  if (later.kind == TypeKind::Int) return SqlType::integer();
  return later;
}

std::int64_t leastOf(TypeKind kind) {
  return infoOf(kind).least;
}

std::int64_t greatestOf(TypeKind kind) {
  return infoOf(kind).greatest;
}

SqlType arithmeticType(ArithmeticOperator op, const SqlType& a, const SqlType& b) {
  if (a.kind != TypeKind::Decimal && b.kind != TypeKind::Decimal) {
    return SqlType::integer(std::max({a.kind, b.kind, TypeKind::TinyInt}));
  }
  const SqlType x = a.asDecimal();
  const SqlType y = b.asDecimal();
  const int scale = std::max(x.scale, y.scale);
  switch (op) {
    case ArithmeticOperator::Multiply:
      return SqlType::decimal(x.precision + y.precision + 1, x.scale + y.scale);
    case ArithmeticOperator::Divide: {
      const int digits = std::max(6, x.scale + y.precision + 1);
      return SqlType::decimal(x.precision - x.scale + y.scale + digits, digits);
    }
    case ArithmeticOperator::Modulo:
      return SqlType::decimal(std::min(x.precision - x.scale, y.precision - y.scale) + scale,
                              scale);
    default:
      return SqlType::decimal(std::max(x.precision - x.scale, y.precision - y.scale) + scale + 1,
                              scale);
  }
}

}  // namespace kebu::engine
