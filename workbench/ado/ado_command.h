#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ado/command.h"
#include "workbench/ado/ado_connection.h"

namespace kebu::workbench {

/// An ADO command that calls a stored procedure.
class AdoCommand : public ado::Command {
 public:
  void setActiveConnection(const Ref<ado::Connection>& connection) override;
  void setCommandText(const std::string& procedure) override;
  void setParameter(std::string_view name, const Value& value) override;
  void setCommandTimeout(std::int32_t seconds) override { commandTimeout_ = seconds; }
  void Execute() override;

 private:
  AdoConnection& connection() const;
  const std::vector<engine::ast::Parameter>& parameters();

  std::shared_ptr<AdoConnection> connection_;
  std::string procedure_;
  /// Its own: the connection's does not apply to it.
  std::int32_t commandTimeout_ = ado::usualTimeout;
  engine::ModulePtr description_;            ///< read at the first use
  std::vector<std::optional<Value>> given_;  ///< by the parameters' places
};

}  // namespace kebu::workbench
