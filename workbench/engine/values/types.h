#pragma once

#include <cstdint>
#include <string>

#include "workbench/engine/values/operators.h"

namespace kebu::engine {

/// In the order of precedence: of two operands the later kind decides.
enum class TypeKind : std::uint8_t {
  Null,
  Char,
  VarChar,
  NChar,
  NVarChar,
  Guid,
  Bit,
  TinyInt,
  SmallInt,
  Int,
  BigInt,
  Decimal,
  Date,
  DateTime
};

/// A T-SQL type as an expression or column has it.
struct SqlType {
  TypeKind kind = TypeKind::Null;
  int precision = 0;  ///< decimals; of an integer literal its digits
  int scale = 0;
  int size = 0;  ///< characters of a text, -1 for max

  static SqlType text(int size) { return {TypeKind::VarChar, 0, 0, size}; }
  static SqlType integer(TypeKind kind = TypeKind::Int) { return {kind, 0, 0, 0}; }
  /// At most 38 digits: beyond, digits after the point are given up.
  static SqlType decimal(int precision, int scale);

  bool isText() const { return kind >= TypeKind::Char && kind <= TypeKind::NVarChar; }
  /// Whether it is a text of any characters; the others are in the database's code page.
  bool isUnicode() const { return kind == TypeKind::NChar || kind == TypeKind::NVarChar; }
  bool isInteger() const { return kind >= TypeKind::Bit && kind <= TypeKind::BigInt; }
  bool isNumber() const { return isInteger() || kind == TypeKind::Decimal; }
  bool isDate() const { return kind == TypeKind::Date || kind == TypeKind::DateTime; }
  /// Decimals of more digits than 64 bits hold are kept as blobs that sort as the numbers do.
  bool isWide() const { return kind == TypeKind::Decimal && precision > 18; }

  /// The decimal type as which a number type takes part in decimal arithmetic.
  SqlType asDecimal() const;
  /// As a script would declare it.
  std::string declaration() const;
  /// The type as one number, as it is handed to the functions that SQLite calls.
  std::int64_t code() const;
  static SqlType fromCode(std::int64_t code);

  friend bool operator==(const SqlType&, const SqlType&) = default;
};

/// The type that both operands of a comparison, CASE or UNION take.
SqlType unify(const SqlType& a, const SqlType& b);
/// The least and greatest value of an integer kind.
std::int64_t leastOf(TypeKind kind);
std::int64_t greatestOf(TypeKind kind);
/// The result of an arithmetic operator over numbers.
SqlType arithmeticType(ArithmeticOperator op, const SqlType& a, const SqlType& b);

}  // namespace kebu::engine
