#include "controls/typed_value.h"

#include <optional>

#include "common/convert.h"
#include "common/locale.h"
#include "common/platform.h"

namespace kebu::controls {

namespace {

/// How many decimals the field keeps; nothing for a field that holds no numbers.
std::optional<int> decimalsOf(const ado::Field& field) {
  switch (field.type) {
    case ado::DataType::UnsignedTinyInt:
    case ado::DataType::SmallInt:
    case ado::DataType::Integer:
      return 0;
    case ado::DataType::Numeric:
      return field.numericScale;
    default:
      return std::nullopt;
  }
}

bool losesDecimals(const ado::Field& field, const Value& value) {
  const std::optional<int> decimals = decimalsOf(field);
  if (!decimals || !value.isText()) return false;
  bool loses = false;
  // What is no number at all is refused elsewhere.
  ignoringErrors([&] {
    const Decimal number = toDecimal(value);
    loses = number != number.truncated(*decimals) ||
            !runtimeLocale().groupsThreeDigits(value.as<std::string>());
  });
  return loses;
}

bool losesCharacters(ControlHost& host, const ado::Field& field, const Value& value) {
  const bool isAnsi = field.type == ado::DataType::Char || field.type == ado::DataType::VarChar;
  return isAnsi && value.isText() && !host.keepsText(toText(value));
}

std::string kindOf(ControlHost& host, const ado::Field& field) {
  if (const std::optional<int> decimals = decimalsOf(field)) {
    if (*decimals == 0) return host.translated("numero intero");
    return host.translated("numero, decimali al massimo: ") + std::to_string(*decimals);
  }
  if (field.type == ado::DataType::DBTimeStamp) return host.translated("data");
  return host.translated("testo, caratteri al massimo: ") + std::to_string(field.definedSize);
}

}  // namespace

bool isLossy(ControlHost& host, const ado::Field& field, const Value& value) {
  return losesDecimals(field, value) || losesCharacters(host, field, value);
}

void tellRefused(ControlHost& host, const std::string& caption, const ado::Field& field,
                 const Value& value) {
  std::string text = host.translated("Valore non valido: ") + "\"" + toDisplay(value) + "\". ";
  if (!caption.empty()) text += caption + ": ";
  text += losesCharacters(host, field, value)
              ? host.translated("Il database non conserva alcuni caratteri.")
              : kindOf(host, field) + ".";
  host.message(text, msgbox::exclamation);
}

}  // namespace kebu::controls
