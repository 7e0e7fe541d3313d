#include "windows/ado/ado_command.h"

#include "windows/ado/ado_connection.h"
#include "windows/ado/ado_constants.h"
#include "windows/ado/failing_statement.h"
#include "windows/ado/results.h"
#include "windows/support/values.h"

namespace kebu::windows {

void AdoCommand::setActiveConnection(const Ref<ado::Connection>& connection) {
  parameters_.reset();
  connection_ = connection;
  object_.put(L"ActiveConnection", unwrap(connection));
}

void AdoCommand::setCommandText(const std::string& procedure) {
  parameters_.reset();
  object_.put(L"CommandType", commandIsStoredProcedure);
  object_.put(L"CommandText", procedure);
}

const Dispatch& AdoCommand::parameters() {
  if (!parameters_) {
    const Dispatch described = object_.get(L"Parameters");
    described.call(L"Refresh");
    parameters_ = described;
  }
  return *parameters_;
}

void AdoCommand::setParameter(std::string_view name, const Value& value) {
  parameters().get(L"Item", {name}).put(L"Value", toVariant(value));
}

void AdoCommand::setCommandTimeout(std::int32_t seconds) {
  object_.put(L"CommandTimeout", seconds);
}

void AdoCommand::Execute() {
  const auto* const adapter = dynamic_cast<const AdoConnection*>(connection_.get());
  tracingFailure(object_.text(L"CommandText"), [&] {
    if (!adapter || !adapter->isAsynchronous()) {
      drain(object_.get(L"Execute"));
      return;
    }
    adapter->clearErrors();
    const Dispatch first =
        object_.get(L"Execute", {Variant::missing(), Variant::missing(), executeAsynchronously});
    adapter->await(first);
    drain(first);
  });
}

}  // namespace kebu::windows
