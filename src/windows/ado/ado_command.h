#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "ado/command.h"
#include "windows/support/identity.h"

namespace kebu::windows {

/// A command object of ADO.
class AdoCommand : public ado::Command, public Foreign {
 public:
  using Role = ado::Command;
  using Foreign::Foreign;

  void setActiveConnection(const Ref<ado::Connection>& connection) override;
  void setCommandText(const std::string& procedure) override;
  void setParameter(std::string_view name, const Value& value) override;
  void setCommandTimeout(std::int32_t seconds) override;
  void Execute() override;

 private:
  const Dispatch& parameters();

  Ref<ado::Connection> connection_;
  /// As the procedure describes them, from the first use on.
  std::optional<Dispatch> parameters_;
};

}  // namespace kebu::windows
