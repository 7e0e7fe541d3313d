#include "controls/typed_value.h"

#include "common/convert.h"
#include "common/platform.h"

namespace kebu::controls {

namespace {

bool isWhole(const ado::Field& field) {
  switch (field.type) {
    case ado::DataType::UnsignedTinyInt:
    case ado::DataType::SmallInt:
    case ado::DataType::Integer:
      return true;
    case ado::DataType::Numeric:
      return field.numericScale == 0;
    default:
      return false;
  }
}

std::string kindOf(ControlHost& host, const ado::Field& field) {
  if (isWhole(field)) return host.translated("numero intero");
  if (field.type == ado::DataType::Numeric) {
    return host.translated("numero, decimali al massimo: ") + std::to_string(field.numericScale);
  }
  if (field.type == ado::DataType::DBTimeStamp) return host.translated("data");
  return host.translated("testo, caratteri al massimo: ") + std::to_string(field.definedSize);
}

}  // namespace

bool losesDecimals(const ado::Field& field, const Value& value) {
  if (!isWhole(field) || !value.isText()) return false;
  bool loses = false;
  // What is no number at all is refused elsewhere.
  ignoringErrors([&] {
    const Decimal number = toDecimal(value);
    loses = number != number.truncated(0);
  });
  return loses;
}

void tellRefused(ControlHost& host, const std::string& caption, const ado::Field& field,
                 const Value& value) {
  std::string text = host.translated("Valore non valido: ") + "\"" + toDisplay(value) + "\". ";
  if (!caption.empty()) text += caption + ": ";
  host.message(text + kindOf(host, field) + ".", msgbox::exclamation);
}

}  // namespace kebu::controls
