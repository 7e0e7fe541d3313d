#include "common/nulls.h"

#include "common/convert.h"
#include "common/locale.h"

namespace kebu {

namespace {

bool isBlank(const Value& value) {
  return value.isText() && value.as<std::string>().find_first_not_of(' ') == std::string::npos;
}

}  // namespace

Value NVL(const Value& value, const Value& fallback) {
  if (value.isEmpty() || value.isNull()) return fallback;
  return isBlank(value) ? fallback : value;
}

Value CDecN(const Value& value) {
  if (value.isEmpty() || value.isNull()) return std::int16_t{0};
  if (isBlank(value)) return std::int16_t{0};
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
