#pragma once

#include <map>
#include <memory>
#include <string>

#include "ado/command.h"
#include "workbench/engine/ado_connection.h"

namespace kebu::engine {

/// An ADO command that calls a stored procedure.
class AdoCommand : public ado::Command {
 public:
  void setActiveConnection(const Ref<ado::Connection>& connection) override;
  void setCommandText(const std::string& procedure) override;
  void setParameter(std::string_view name, const Value& value) override;
  void Execute() override;

 private:
  AdoConnection& connection() const;

  std::shared_ptr<AdoConnection> connection_;
  std::string procedure_;
  std::map<std::string, Value> values_;  ///< by the names in capitals
};

}  // namespace kebu::engine
