#include "workbench/ado/parameter_statement.h"

#include "common/convert.h"
#include "workbench/ado/field_value.h"
#include "workbench/engine/values/cast.h"

namespace kebu::workbench {

ParameterStatement::ParameterStatement(std::size_t valueCount, bool isReadable)
    : readable(isReadable) {
  constexpr std::size_t plenty = 1000;  // characters; most statements need no second allocation
  values.reserve(valueCount);
  command.reserve(plenty);
  if (readable) text.reserve(plenty);
}

ParameterStatement& ParameterStatement::add(std::string_view piece) {
  command += piece;
  if (readable) text += piece;
  return *this;
}

ParameterStatement& ParameterStatement::addName(const std::string& name) {
  appendName(command, name);
  if (readable) appendName(text, name);
  return *this;
}

ParameterStatement& ParameterStatement::addValue(const engine::SqlType& type, const Value& value) {
  values.push_back({type, engine::castTo(value, type)});
  command += '?';
  if (readable) text += sqlText(value);
  return *this;
}

void appendName(std::string& text, const std::string& name) {
  text += '[';
  if (name.find(']') == std::string::npos) {
    text += name;
  } else {
    text += replaceAll(name, "]", "]]");
  }
  text += ']';
}

}  // namespace kebu::workbench
