#include "workbench/ado/ado_command.h"

#include <algorithm>

#include "common/convert.h"
#include "workbench/ado/ado_error.h"
#include "workbench/ado/field_value.h"

namespace kebu::workbench {

void AdoCommand::setActiveConnection(const Ref<ado::Connection>& connection) {
  connection_ = connection ? AdoConnection::behind(connection) : nullptr;
}

void AdoCommand::setCommandText(const std::string& procedure) {
  procedure_ = procedure;
  description_.reset();
}

AdoConnection& AdoCommand::connection() const {
  if (!connection_) throw adoerror::badConnection();
  return *connection_;
}

const std::vector<engine::ast::Parameter>& AdoCommand::parameters() {
  if (!description_) {
    description_ = connection().session().procedure(procedure_);
    given_.assign(description_->tree.parameters.size(), std::nullopt);
  }
  return description_->tree.parameters;
}

void AdoCommand::setParameter(std::string_view name, const Value& value) {
  const auto& all = parameters();
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const engine::ast::Parameter& parameter) {
        return equalsIgnoringCase(parameter.name, name);
      });
  if (found == all.end()) throw adoerror::noSuchItem();
  given_[static_cast<std::size_t>(found - all.begin())] = forField(value, found->type);
}

void AdoCommand::Execute() {
  const auto& all = parameters();
  std::string statement = "EXEC " + procedure_;
  const char* separator = " ";
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (!given_[i]) continue;
    statement += separator + all[i].name + " = " + literalOf(*given_[i], all[i].type);
    separator = ", ";
  }
  connection().run(statement, commandTimeout_);
}

}  // namespace kebu::workbench
