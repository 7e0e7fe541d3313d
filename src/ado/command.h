#pragma once

#include <string>
#include <string_view>

#include "ado/connection.h"

namespace kebu::ado {

/// A stored procedure to call, its parameters taken by name from the
/// procedure's own description at the first use.
class Command {
 public:
  virtual ~Command() = default;

  /// Nothing detaches the command from its connection.
  virtual void setActiveConnection(const Ref<Connection>& connection) = 0;
  virtual void setCommandText(const std::string& procedure) = 0;
  /// `name` with its "@"; RuntimeError 3265 when the procedure has none such.
  virtual void setParameter(std::string_view name, const Value& value) = 0;
  virtual void Execute() = 0;
};

}  // namespace kebu::ado
