// Conversions and arithmetic.

#include <array>

#include "workbench/engine/functions/functions.h"
#include "workbench/engine/values/cast.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {
namespace {

SqlType typeAt(CellArguments args, std::size_t index) {
  return SqlType::fromCode(integerAt(args, index));
}

Decimal decimalAt(CellArguments args, std::size_t index, const SqlType& type) {
  return valueOf(args[index], type).as<Decimal>();
}

/// kb_cast(value, from, to, style)
Cell castCell(CellArguments args) {
  const SqlType to = typeAt(args, 2);
  const Value value = valueOf(args[0], typeAt(args, 1));
  return storedAs(castTo(value, to, static_cast<int>(integerAt(args, 3))), to);
}

/// kb_range(value, least, greatest, type name)
Cell rangeChecked(CellArguments args) {
  Cell value = cellOf(args[0]);
  if (value.integer < integerAt(args, 1) || value.integer > integerAt(args, 2)) {
    const std::string type(textAt(args, 3));
    if (type == "smallint" || type == "tinyint") {
      throw SqlError(220, "Arithmetic overflow error for data type " + type +
                              ", value = " + std::to_string(value.integer) + ".");
    }
    throw SqlError(8115,
                   "Arithmetic overflow error converting expression to data type " + type + ".");
  }
  return value;
}

/// kb_divide(a, b) and kb_modulo(a, b) of integers
template <bool modulo>
Cell divided(CellArguments args) {
  const std::int64_t divisor = integerAt(args, 1);
  if (divisor == 0) throw SqlError(8134, "Divide by zero error encountered.", "22012");
  const std::int64_t dividend = integerAt(args, 0);
  if (divisor == -1) return Cell::of(modulo ? 0 : -dividend);
  return Cell::of(modulo ? dividend % divisor : dividend / divisor);
}

Decimal calculated(char op, const Decimal& a, const Decimal& b, int scale) {
  switch (op) {
    case '+':
      return a + b;
    case '-':
      return a - b;
    case '*':
      return a * b;
    // A quotient is truncated, not rounded.
    case '/':
      return (a / b).truncated(scale);
    default:
      return a - (a / b).truncated(0) * b;
  }
}

/// kb_decimal(op, a, type, b, type, result type)
Cell decimalOperation(CellArguments args) {
  const SqlType result = typeAt(args, 5);
  const Decimal value = calculated(textAt(args, 0).front(), decimalAt(args, 1, typeAt(args, 2)),
                                   decimalAt(args, 3, typeAt(args, 4)), result.scale);
  return storedAs(castTo(value, result), result);
}

/// kb_round(value, type, digits, cut): the result is of the same type.
Cell rounded(CellArguments args) {
  const SqlType type = typeAt(args, 1);
  const Value value = valueOf(args[0], type);
  Decimal number = castTo(value, SqlType::decimal(38, type.scale)).as<Decimal>();
  auto digits = static_cast<int>(integerAt(args, 2));
  if (digits >= type.scale) return cellOf(args[0]);
  const bool cut = integerAt(args, 3) != 0;
  Decimal unit(1);
  for (; digits < 0; ++digits) unit = unit * Decimal(10);
  number = number / unit;
  number = (cut ? number.truncated(digits) : number.roundedAway(digits)) * unit;
  return storedAs(castTo(number, type), type);
}

/// kb_floor(value, type, result type) and kb_ceiling
template <int step>
Cell wholeNumber(CellArguments args) {
  const Decimal number = decimalAt(args, 0, typeAt(args, 1));
  Decimal whole = number.truncated(0);
  const bool beyond = step < 0 ? whole > number : whole < number;
  if (beyond) whole = whole + Decimal(step);
  return storedAs(whole, typeAt(args, 2));
}

/// kb_str(decimal(38,8), length, decimals)
Cell str(CellArguments args) {
  const Decimal number = decimalAt(args, 0, SqlType::decimal(38, 8));
  const std::string text = number.roundedAway(static_cast<int>(integerAt(args, 2))).toString();
  constexpr std::int64_t longest = 8000;
  if (integerAt(args, 1) < 1 || integerAt(args, 1) > longest) return {};
  const auto length = static_cast<std::size_t>(integerAt(args, 1));
  return Cell::text(text.size() > length ? std::string(length, '*')
                                         : std::string(length - text.size(), ' ') + text);
}

constexpr std::array entries{
    FunctionEntry{"kb_cast", 4, castCell},
    FunctionEntry{"kb_range", 4, rangeChecked},
    FunctionEntry{"kb_divide", 2, divided<false>},
    FunctionEntry{"kb_modulo", 2, divided<true>},
    FunctionEntry{"kb_decimal", 6, decimalOperation},
    FunctionEntry{"kb_round", 4, rounded},
    FunctionEntry{"kb_floor", 3, wholeNumber<-1>},
    FunctionEntry{"kb_ceiling", 3, wholeNumber<1>},
    FunctionEntry{"kb_str", 3, str},
};

}  // namespace

std::span<const FunctionEntry> numberFunctions() {
  return entries;
}

}  // namespace kebu::engine
