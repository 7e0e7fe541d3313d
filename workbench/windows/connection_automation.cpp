#include "workbench/windows/ado_automation.h"

#include <memory>
#include <string>

#include "windows/ado/ado_constants.h"
#include "windows/ado/error_collection.h"
#include "windows/support/dispatch.h"
#include "windows/support/identity.h"
#include "workbench/windows/ado_state.h"

namespace kebu::workbench {

using namespace windows;

namespace {

using Argument = const Arguments&;

Variant execute(ConnectionState& state, Argument arguments) {
  ado::Connection& connection = state.idle();
  const std::string text = arguments.text(0);
  if ((arguments.number(2, 0) & executeNoRecords) != 0) {
    connection.ExecuteNoRecords(text);
    return nothing();
  }
  if (!isAsynchronous(arguments, 2)) {
    const auto own = state.own();
    if (!own || !own->isOpen()) return Variant(automate(connection.Execute(text)));
    return Variant(automateState(recordsetOf(own, text, own->run(text))));
  }
  auto result = std::make_shared<RecordsetState>();
  result->rows = makeRef<AdoRecordset>();
  runAsynchronously(result, state, [on = state.connection, text] { return on->Execute(text); });
  return Variant(automateState(result));
}

/// The collection of a connection's errors.
constexpr Member<AdoConnection> errorsMembers[] = {
    {L"Item",
     [](AdoConnection& c, Argument arguments) {
       const Dispatch errors(newErrorCollection(c.errors()));
       return errors.call(L"Item", {arguments.number(0)});
     }},
    {L"Count", [](AdoConnection& c,
                  Argument) { return Variant(static_cast<std::int32_t>(c.errors().size())); }},
    {L"Clear",
     [](AdoConnection& c, Argument) {
       c.clearErrors();
       return nothing();
     }},
};

constexpr Member<ConnectionState> connectionMembers[] = {
    {L"ConnectionString",
     [](ConnectionState& c, Argument) { return Variant(c.connection->connectionString()); },
     [](ConnectionState& c, Argument arguments) {
       c.connection->setConnectionString(arguments.text(0));
     }},
    {L"Open",
     [](ConnectionState& c, Argument arguments) {
       if (arguments.has(0)) c.connection->setConnectionString(arguments.text(0));
       c.connection->Open();
       return nothing();
     }},
    {L"Close",
     [](ConnectionState& c, Argument) {
       c.idle().Close();
       return nothing();
     }},
    {L"State",
     [](ConnectionState& c, Argument) {
       const std::int32_t state = c.connection->isOpen() ? stateOpen : stateClosed;
       return Variant(c.isExecuting() ? state | stateExecuting : state);
     }},
    {L"Execute", execute},
    {L"Cancel",
     [](ConnectionState& c, Argument) {
       if (const auto recordset = c.last.lock()) recordset->cancel();
       return nothing();
     }},
    {L"Version", [](ConnectionState&, Argument) { return Variant("the workbench's"); }},
    {L"Provider", [](ConnectionState&, Argument) { return Variant("Workbench"); }},
    {L"CommandTimeout",
     [](ConnectionState& c, Argument) { return Variant(c.own()->commandTimeout()); },
     [](ConnectionState& c, Argument arguments) {
       c.connection->setCommandTimeout(arguments.number(0));
     }},
    {L"Errors",
     [](ConnectionState& c, Argument) {
       static_cast<void>(c.idle());
       return Variant(automated(c.own(), errorsMembers));
     }},
};

}  // namespace

ComPtr<IDispatch> automate(const Ref<ado::Connection>& connection) {
  // One that is an object already is handed over as it is.
  if (const auto* const real = dynamic_cast<const Foreign*>(connection.get())) {
    return real->comObject();
  }
  if (!connection) return nullptr;
  return automated<ConnectionState>(
      std::make_shared<ConnectionState>(ConnectionState{connection, {}}), connectionMembers);
}

Ref<ado::Connection> connectionBehind(const ComPtr<IDispatch>& object) {
  const auto connection = subjectOf<ConnectionState>(object);
  if (!connection) return nullptr;
  static_cast<void>(connection->idle());
  return connection->connection;
}

}  // namespace kebu::workbench
