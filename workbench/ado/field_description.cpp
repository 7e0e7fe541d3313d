#include "workbench/ado/field_description.h"

#include <algorithm>
#include <cstdint>

namespace kebu::workbench {
namespace {

using engine::TypeKind;

ado::DataType dataTypeOf(TypeKind kind) {
  switch (kind) {
    case TypeKind::Char:
      return ado::DataType::Char;
    case TypeKind::VarChar:
      return ado::DataType::VarChar;
    case TypeKind::NChar:
      return ado::DataType::WChar;
    case TypeKind::NVarChar:
      return ado::DataType::VarWChar;
    case TypeKind::Guid:
      return ado::DataType::Guid;
    case TypeKind::Bit:
      return ado::DataType::Boolean;
    case TypeKind::TinyInt:
      return ado::DataType::UnsignedTinyInt;
    case TypeKind::SmallInt:
      return ado::DataType::SmallInt;
    case TypeKind::BigInt:
    case TypeKind::Decimal:
      return ado::DataType::Numeric;
    case TypeKind::Date:
    case TypeKind::DateTime:
      return ado::DataType::DBTimeStamp;
    default:
      return ado::DataType::Integer;
  }
}

}  // namespace

ado::Field describeField(const engine::ResultColumn& column) {
  const engine::SqlType& type = column.type;
  ado::Field field;
  field.name = column.name;
  field.type = dataTypeOf(type.kind);
  if (type.isText()) field.definedSize = type.size < 0 ? -1 : std::max(type.size, 1);
  if (type.isNumber()) {
    // The digits of the type, not those of a literal that it may come from.
    const engine::SqlType number =
        type.kind == TypeKind::Int ? engine::SqlType::integer().asDecimal() : type.asDecimal();
    field.precision = static_cast<std::uint8_t>(number.precision);
    field.numericScale = static_cast<std::uint8_t>(number.scale);
  }
  return field;
}

}  // namespace kebu::workbench
