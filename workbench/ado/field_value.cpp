#include "workbench/ado/field_value.h"

#include "common/convert.h"
#include "workbench/ado/ado_error.h"
#include "workbench/engine/values/cast.h"

namespace kebu::workbench {
namespace {

bool isWholeNumber(const Value& value) {
  return value.holds<std::int16_t>() || value.holds<std::int32_t>();
}

Value number(const Value& value, const engine::SqlType& type) {
  try {
    return engine::castTo(value, type);
  } catch (const engine::SqlError&) {  // the number has more digits than the field
    throw RuntimeError::overflow();
  }
}

Value integer(const Value& value, const engine::SqlType& type) {
  return number(isWholeNumber(value) ? value : toDecimal(value).rounded(0), type);
}

Value text(const Value& value, const engine::SqlType& type) {
  std::string result = toText(value);
  if (type.size >= 0 && characterCount(result) > static_cast<std::size_t>(type.size)) {
    throw adoerror::badValue();
  }
  return result;
}

}  // namespace

Value forField(const Value& value, const engine::SqlType& type) {
  if (value.isNull()) return value;
  if (type.kind == engine::TypeKind::Bit) return toBoolean(value);
  if (type.isInteger() && type.kind != engine::TypeKind::BigInt) return integer(value, type);
  if (type.isNumber()) return number(toDecimal(value), type);
  if (type.isText() || type.kind == engine::TypeKind::Guid) return text(value, type);
  if (type.isDate()) return toDate(value);
  return value;
}

std::string sqlText(const Value& value) {
  if (value.isNull() || value.isEmpty()) return "NULL";
  if (value.holds<bool>()) return value.as<bool>() ? "1" : "0";
  if (value.holds<Date>()) {
    const Date& date = value.as<Date>();
    return "'" + (date.hasTime() ? date.toAnsi() + date.toIso().substr(10) : date.toAnsi()) + "'";
  }
  if (value.isNumber()) return toSqlNumber(value);
  return "'" + replaceAll(toText(value), "'", "''") + "'";
}

}  // namespace kebu::workbench
