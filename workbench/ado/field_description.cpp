#include "workbench/ado/field_description.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace kebu::workbench {
namespace {

using engine::TypeKind;

/// In the order of TypeKind, that of NULL alone first.
constexpr std::array dataTypes{ado::DataType::Integer,     ado::DataType::Char,
                               ado::DataType::VarChar,     ado::DataType::WChar,
                               ado::DataType::VarWChar,    ado::DataType::Guid,
                               ado::DataType::Boolean,     ado::DataType::UnsignedTinyInt,
                               ado::DataType::SmallInt,    ado::DataType::Integer,
                               ado::DataType::Numeric,     ado::DataType::Numeric,
                               ado::DataType::DBTimeStamp, ado::DataType::DBTimeStamp};

}  // namespace

ado::Field describeField(const engine::ResultColumn& column) {
  const engine::SqlType& type = column.type;
  ado::Field field;
  field.name = column.name;
  field.type = dataTypes.at(static_cast<std::size_t>(type.kind));
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
