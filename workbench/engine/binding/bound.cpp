#include "workbench/engine/binding/bound.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "workbench/engine/sqlite.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {
namespace {

constexpr int narrowDigits = 18;

std::string powerOfTen(int exponent) {
  return "1" + std::string(static_cast<std::size_t>(exponent), '0');
}

std::string code(const SqlType& type) {
  return std::to_string(type.code());
}

std::string castCall(const Bound& value, const SqlType& to, int style) {
  return "kb_cast(" + value.sql + ", " + code(value.type) + ", " + code(to) + ", " +
         std::to_string(style) + ")";
}

std::string inRange(const std::string& sql, TypeKind kind) {
  return "kb_range(" + sql + ", " + std::to_string(leastOf(kind)) + ", " +
         std::to_string(greatestOf(kind)) + ", '" + SqlType::integer(kind).declaration() + "')";
}

/// Whether the number has at most 18 digits at the scale.
bool fitsNarrow(const SqlType& type, int scale) {
  const SqlType number = type.asDecimal();
  return number.precision - number.scale + scale <= narrowDigits;
}

/// A narrow number at a greater scale.
std::string rescaled(const Bound& value, int scale) {
  const int digits = scale - value.type.asDecimal().scale;
  return digits == 0 ? value.sql : "(" + value.sql + " * " + powerOfTen(digits) + ")";
}

bool isSum(ArithmeticOperator op) {
  return op == ArithmeticOperator::Add || op == ArithmeticOperator::Subtract;
}

std::string decimalCall(ArithmeticOperator op, const Bound& a, const Bound& b,
                        const SqlType& result) {
  return "kb_decimal('" + std::string(symbolOf(op)) + "', " + a.sql + ", " +
         code(a.type.asDecimal()) + ", " + b.sql + ", " + code(b.type.asDecimal()) + ", " +
         code(result) + ")";
}

SqlError operandClash(const SqlType& a, const SqlType& b) {
  return {206,
          "Operand type clash: " + a.declaration() + " is incompatible with " + b.declaration()};
}

SqlError doNotMix(ArithmeticOperator op, const SqlType& a, const SqlType& b) {
  return {402, "The data types " + a.declaration() + " and " + b.declaration() +
                   " are incompatible in the '" + std::string(symbolOf(op)) + "' operator."};
}

Bound integerArithmetic(ArithmeticOperator op, const Bound& a, const Bound& b,
                        const SqlType& type) {
  switch (op) {
    case ArithmeticOperator::Divide:
      return {"kb_divide(" + a.sql + ", " + b.sql + ")", type};
    case ArithmeticOperator::Modulo:
      return {"kb_modulo(" + a.sql + ", " + b.sql + ")", type};
    case ArithmeticOperator::BitXor:  // SQLite has no operator for it
      return {"((" + a.sql + " | " + b.sql + ") - (" + a.sql + " & " + b.sql + "))", type};
    default:
      return {inRange("(" + a.sql + " " + std::string(symbolOf(op)) + " " + b.sql + ")", type.kind),
              type};
  }
}

Bound decimalArithmetic(ArithmeticOperator op, const Bound& a, const Bound& b,
                        const SqlType& type) {
  if (!type.isWide() && !a.type.isWide() && !b.type.isWide()) {
    if (isSum(op)) {
      return {"(" + rescaled(a, type.scale) + " " + std::string(symbolOf(op)) + " " +
                  rescaled(b, type.scale) + ")",
              type};
    }
    if (op == ArithmeticOperator::Multiply) return {"(" + a.sql + " * " + b.sql + ")", type};
  }
  return {decimalCall(op, a, b, type), type};
}

/// Whether a text goes through the code page.
bool losesCharacters(const SqlType& from, const SqlType& to) {
  return from.isUnicode() && to.isText() && !to.isUnicode();
}

}  // namespace

bool sameStorage(const SqlType& a, const SqlType& b) {
  if (a.kind == TypeKind::Null || b.kind == TypeKind::Null) return true;
  if (a.isText())
    return b.isText() && !losesCharacters(a, b) &&
           (a.kind == b.kind || (b.kind != TypeKind::Char && b.kind != TypeKind::NChar));
  if (a.isInteger()) return b.isInteger() && a.kind <= b.kind;
  if (a.kind == TypeKind::Decimal) {
    return b.kind == TypeKind::Decimal && a.scale == b.scale && a.isWide() == b.isWide() &&
           a.precision <= b.precision;
  }
  return a.kind == b.kind || (a.kind == TypeKind::Date && b.kind == TypeKind::DateTime);
}

bool clash(const SqlType& from, const SqlType& to) {
  return (from.isNumber() && to.kind == TypeKind::Date) ||
         (from.kind == TypeKind::Date && to.isNumber());
}

Bound cast(const Bound& value, const SqlType& to, int style) {
  const SqlType& from = value.type;
  if (clash(from, to)) throw operandClash(from, to);
  Bound result{value.sql, to, value.nullable};
  if (from.kind == TypeKind::Null) return result;
  constexpr int isoDate = 23;  // the usual style of a date; that of a datetime is another
  if (from.kind == TypeKind::Date && style == 0) style = isoDate;
  const bool cut = from.isText() && to.size >= 0 && (from.size < 0 || from.size > to.size);
  if (from.isText() && to.isText() && to.kind != TypeKind::Char && to.kind != TypeKind::NChar &&
      !losesCharacters(from, to)) {
    if (cut) result.sql = "substr(" + value.sql + ", 1, " + std::to_string(to.size) + ")";
    return result;
  }
  const bool mayLeaveRange = from.kind == TypeKind::Date && to.kind == TypeKind::DateTime;
  if (!from.isText() && sameStorage(from, to) && !mayLeaveRange) return result;
  if (from.isInteger() && to.isInteger() && to.kind != TypeKind::Bit) {
    result.sql = inRange(value.sql, to.kind);
  } else if (from.isNumber() && to.kind == TypeKind::Decimal && !from.isWide() && !to.isWide() &&
             from.asDecimal().scale <= to.scale &&
             from.asDecimal().precision - from.asDecimal().scale <= to.precision - to.scale) {
    result.sql = rescaled(value, to.scale);
  } else {
    result.sql = castCall(value, to, style);
  }
  return result;
}

std::string stored(const Bound& value, const TableColumn& column, const std::string& table) {
  const SqlType& from = value.type;
  const SqlType& to = column.type;
  if (from.kind == TypeKind::Null) return value.sql;
  const bool mayBeTooLong =
      from.isText() && to.isText() && to.size >= 0 && (from.size < 0 || from.size > to.size);
  if (mayBeTooLong) {
    const std::string fitted = "kb_fit(" + value.sql + ", " + std::to_string(to.size) + ", " +
                               textLiteral(table) + ", " + textLiteral(column.name) + ")";
    return cast({fitted, SqlType::text(to.size)}, to).sql;
  }
  return cast(value, to).sql;
}

std::string collated(const Bound& value) {
  const bool text = value.type.isText() || value.type.kind == TypeKind::Guid;
  return text ? value.sql + " COLLATE KB" : value.sql;
}

void makeComparable(Bound& a, Bound& b) {
  const SqlType common = unify(a.type, b.type);
  if (a.type.kind == TypeKind::Null || b.type.kind == TypeKind::Null) return;
  if (common.kind == TypeKind::Decimal && a.type.isNumber() && b.type.isNumber()) {
    const int scale = std::max(a.type.asDecimal().scale, b.type.asDecimal().scale);
    const bool narrow = fitsNarrow(a.type, scale) && fitsNarrow(b.type, scale);
    const SqlType type{TypeKind::Decimal, narrow ? narrowDigits : 38, scale, 0};
    for (Bound* side : {&a, &b}) {
      *side = narrow ? Bound{rescaled(*side, scale), type, side->nullable} : cast(*side, type);
    }
    return;
  }
  for (Bound* side : {&a, &b}) {
    if (side->type.isText() && common.isText()) continue;
    if (side->type.isInteger() && common.isInteger()) continue;
    if (side->type.isText() && common.kind == TypeKind::Decimal) {
      // The digits of the text count, not those of the other side's type.
      *side = cast(*side, {TypeKind::Decimal, 38, common.scale, 0});
    } else {
      *side = cast(*side, common);
    }
  }
  if (common.kind == TypeKind::Decimal && a.type.isWide() != b.type.isWide()) {
    Bound& narrow = a.type.isWide() ? b : a;
    narrow = cast(narrow, {TypeKind::Decimal, 38, common.scale, 0});
  }
}

std::string comparison(ComparisonOperator op, const Bound& left, const Bound& right) {
  Bound a = left;
  Bound b = right;
  makeComparable(a, b);
  return "(" + a.sql + " " + std::string(symbolOf(op)) + " " + collated(b) + ")";
}

Bound arithmetic(ArithmeticOperator op, const Bound& left, const Bound& right) {
  Bound a = left;
  Bound b = right;
  const bool nullable = a.nullable || b.nullable;
  if (a.type.kind == TypeKind::Null) a.type = b.type;
  if (b.type.kind == TypeKind::Null) b.type = a.type;
  if (a.type.kind == TypeKind::Null) a.type = b.type = SqlType::integer();
  if (op == ArithmeticOperator::Add && a.type.isText() && b.type.isText()) {
    SqlType type = unify(a.type, b.type);
    constexpr int maxSize = 8000;
    if (type.size >= 0) type.size = std::min(a.type.size + b.type.size, maxSize);
    if (type.kind == TypeKind::Char) type.kind = TypeKind::VarChar;
    // A long chain takes one pair of parentheses only: SQLite limits how many may be nested.
    const std::string first = a.isConcatenation ? a.sql.substr(1, a.sql.size() - 2) : a.sql;
    return {"(" + first + " || " + b.sql + ")", type, nullable, {}, true};
  }
  if (op == ArithmeticOperator::Add && a.type.isInteger() && b.type.isDate()) std::swap(a, b);
  if (clash(a.type, b.type)) throw operandClash(a.type, b.type);
  if (isSum(op) && a.type.isDate() && b.type.isInteger()) {
    const std::string number = cast(b, SqlType::integer()).sql;
    const std::string days = op == ArithmeticOperator::Subtract ? "-(" + number + ")" : number;
    return {"kb_dateadd('DAY', " + days + ", " + a.sql + ", " + code(a.type) + ")", a.type,
            nullable};
  }
  if (a.type.isText() && b.type.isNumber())
    a = cast(a, b.type.kind == TypeKind::Decimal ? b.type : SqlType::integer());
  if (b.type.isText() && a.type.isNumber())
    b = cast(b, a.type.kind == TypeKind::Decimal ? a.type : SqlType::integer());
  if (!a.type.isNumber() || !b.type.isNumber()) throw doNotMix(op, a.type, b.type);
  const SqlType type = arithmeticType(op, a.type, b.type);
  Bound result = type.kind == TypeKind::Decimal ? decimalArithmetic(op, a, b, type)
                                                : integerArithmetic(op, a, b, type);
  result.nullable = nullable;
  return result;
}

Bound negated(const Bound& value) {
  if (value.type.isText()) return negated(cast(value, SqlType::integer()));
  if (!value.type.isNumber() && value.type.kind != TypeKind::Null)
    throw doNotMix(ArithmeticOperator::Subtract, value.type, value.type);
  if (value.type.isWide()) {
    const Bound zero{"0", {TypeKind::Int, 1, 0, 0}, false};
    return {decimalCall(ArithmeticOperator::Subtract, zero, value, value.type), value.type,
            value.nullable};
  }
  return {"(-" + value.sql + ")", value.type, value.nullable};
}

}  // namespace kebu::engine
