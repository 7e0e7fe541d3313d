#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ado/connection.h"

namespace kebu::ado {

/// A stored procedure to call. Its parameters are read from the database when the
/// first one is set.
class Command {
 public:
  virtual ~Command() = default;

  /// Null detaches the command from its connection.
  virtual void setActiveConnection(const Ref<Connection>& connection) = 0;
  virtual void setCommandText(const std::string& procedure) = 0;
  /// `name` with its "@"; RuntimeError 3265 when the procedure has none such.
  virtual void setParameter(std::string_view name, const Value& value) = 0;
  /// Seconds after which a call fails; 0 for no limit. At first usualTimeout, whatever the
  /// connection's is.
  virtual void setCommandTimeout(std::int32_t seconds) = 0;
  /// Calls the procedure with the parameters set. Calls the function of the connection's
  /// whileExecuting meanwhile.
  virtual void Execute() = 0;
};

}  // namespace kebu::ado
