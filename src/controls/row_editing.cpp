#include "controls/row_editing.h"

#include <limits>

#include "common/convert.h"

namespace kebu::controls {

namespace {

/// The number with the digits of the field.
Decimal decimalFor(const ado::Field& field, const Value& value) {
  const Decimal rounded = toDecimal(value).roundedAway(field.numericScale);
  const Decimal whole = rounded.truncated(0);
  const std::string digits = whole.toString();
  const int count = static_cast<int>(digits.size()) - (digits.starts_with('-') ? 1 : 0);
  if (!whole.isZero() && count > field.precision - field.numericScale) {
    throw RuntimeError::overflow();
  }
  return rounded;
}

std::int16_t byteFor(const Value& value) {
  const std::int16_t number = toInt16(value);
  if (number < 0 || number > std::numeric_limits<std::uint8_t>::max()) {
    throw RuntimeError::overflow();
  }
  return number;
}

std::string textFor(const ado::Field& field, const Value& value) {
  std::string text = toText(value);
  if (field.definedSize >= 0 &&
      characterCount(text) > static_cast<std::size_t>(field.definedSize)) {
    throw RuntimeError::textTooLong();
  }
  return text;
}

}  // namespace

Value convertedFor(const ado::Field& field, const Value& value) {
  if (value.isNull()) return value;
  switch (field.type) {
    case ado::DataType::Boolean:
      return toBoolean(value);
    case ado::DataType::UnsignedTinyInt:
      return byteFor(value);
    case ado::DataType::SmallInt:
      return toInt16(value);
    case ado::DataType::Integer:
      return toInt32(value);
    case ado::DataType::Numeric:
      return decimalFor(field, value);
    case ado::DataType::DBTimeStamp:
      return toDate(value);
    case ado::DataType::Char:
    case ado::DataType::WChar:
    case ado::DataType::VarChar:
    case ado::DataType::VarWChar:
      return textFor(field, value);
    default:
      return value;
  }
}

void setField(ado::Recordset& rows, std::string_view field, const Value& value) {
  const std::vector<ado::Field>& fields = rows.fields();
  rows.setValue(field, convertedFor(fields[ado::requireIndex(fields, field)], value));
}

void writeRow(ado::Recordset& rows, const std::vector<std::pair<std::string, Value>>& cells) {
  try {
    for (const auto& [field, value] : cells) setField(rows, field, value);
    rows.Update();
  } catch (...) {
    if (rows.editMode() != ado::EditMode::None) rows.CancelUpdate();
    throw;
  }
}

}  // namespace kebu::controls
