#include "workbench/engine/ado_command.h"

#include <algorithm>

#include "common/convert.h"
#include "workbench/engine/ado_error.h"
#include "workbench/engine/field_value.h"

namespace kebu::engine {

void AdoCommand::setActiveConnection(const Ref<ado::Connection>& connection) {
  connection_ = connection ? AdoConnection::behind(connection) : nullptr;
}

void AdoCommand::setCommandText(const std::string& procedure) {
  procedure_ = procedure;
  values_.clear();
}

AdoConnection& AdoCommand::connection() const {
  if (!connection_) throw adoerror::badConnection();
  return *connection_;
}

void AdoCommand::setParameter(std::string_view name, const Value& value) {
  const auto& parameters = connection().session().parametersOf(procedure_);
  const auto found = std::find_if(
      parameters.begin(), parameters.end(),
      [&](const ast::Parameter& parameter) { return equalsIgnoringCase(parameter.name, name); });
  if (found == parameters.end()) throw adoerror::noSuchItem();
  values_[toUpperAscii(name)] = forField(value, found->type);
}

void AdoCommand::Execute() {
  std::string text = "EXEC " + procedure_;
  const char* separator = " ";
  for (const auto& parameter : connection().session().parametersOf(procedure_)) {
    const auto given = values_.find(toUpperAscii(parameter.name));
    if (given == values_.end()) continue;
    text += separator + parameter.name + " = " + sqlText(given->second);
    separator = ", ";
  }
  connection().run(text);
}

}  // namespace kebu::engine
