#include "workbench/ado/field_value.h"

#include "common/convert.h"
#include "workbench/ado/ado_error.h"
#include "workbench/engine/values/cast.h"
#include "workbench/engine/values/code_page.h"

namespace kebu::workbench {
namespace {

using engine::TypeKind;

/// The text that a text field takes. One in a type of the code page loses what that cannot hold.
std::string text(const Value& value, const engine::SqlType& type) {
  std::string result = value.isText()        ? value.as<std::string>()
                       : value.isNumber()    ? toSqlNumber(value)
                       : value.holds<Date>() ? value.as<Date>().toIso()
                                             : toText(value);
  const bool fits = type.size < 0 || characterCount(result) <= static_cast<std::size_t>(type.size);
  if (!fits) throw adoerror::badValue();
  return type.isUnicode() ? result : engine::inCodePage(std::move(result));
}

std::string quoted(const std::string& text) {
  return "'" + replaceAll(text, "'", "''") + "'";
}

}  // namespace

Value forField(const Value& value, const engine::SqlType& type) {
  if (value.isNull()) return value;
  if (type.isText()) return text(value, type);
  if (type.kind == TypeKind::Guid) return text(value, {TypeKind::VarChar, 0, 0, 38});
  if (type.kind == TypeKind::Bit && !value.isText()) return toBoolean(value);
  if (type.isDate() && !value.isText()) return toDate(value);
  const bool isFraction = type.isInteger() && value.holds<Decimal>();
  const Value number = isFraction            ? Value(value.as<Decimal>().rounded(0))
                       : value.holds<bool>() ? Value(toDecimal(value))  // true is -1
                                             : value;
  try {
    return engine::castTo(number, type);
  } catch (const engine::SqlError&) {
    throw adoerror::badValue();
  }
}

std::string literalOf(const Value& value, const engine::SqlType& type) {
  if (value.isNull() || value.isEmpty()) return "NULL";
  if (value.holds<bool>()) return value.as<bool>() ? "1" : "0";
  if (value.holds<Date>()) {
    const Date& date = value.as<Date>();
    return quoted(date.hasTime() ? date.toAnsi() + date.toIso().substr(10) : date.toAnsi());
  }
  if (value.isNumber()) return toSqlNumber(value);
  return (type.isUnicode() ? "N" : "") + quoted(toText(value));
}

}  // namespace kebu::workbench
