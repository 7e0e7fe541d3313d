#include "common/nulls.h"

#include "common/convert.h"
#include "common/locale.h"

namespace kebu {

Value NVL(const Value& value, const Value& fallback) {
  if (value.isEmpty() || value.isNull()) return fallback;
  if (value.isText() && trim(value.as<std::string>()).empty()) return fallback;
  return value;
}

Value CDecN(const Value& value) {
  if (value.isEmpty() || value.isNull()) return std::int16_t{0};
  if (value.isText() && trimRight(value.as<std::string>()).empty()) return std::int16_t{0};
  return toDecimal(value);
}

std::string RTrimN(const Value& value) {
  return trimRight(toDisplay(value));
}

std::string GetAnsiDate(const Value& value) {
  if (value.holds<Date>()) return value.as<Date>().toAnsi();
  if (!value.isText()) return {};
  const auto date = runtimeLocale().parseDate(value.as<std::string>());
  return date ? date->toAnsi() : std::string();
}

}  // namespace kebu
