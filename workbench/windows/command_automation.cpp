#include "workbench/windows/ado_automation.h"

#include <memory>
#include <string>

#include "windows/support/automation.h"
#include "workbench/windows/ado_state.h"

namespace kebu::workbench {

using namespace windows;

namespace {

using Argument = const Arguments&;

struct CommandState : std::enable_shared_from_this<CommandState> {
  Ref<ado::Command> command;
  ComPtr<IDispatch> connection;
  std::string text;
  std::int32_t type = 8;  // unknown
};

struct ParameterState {
  std::shared_ptr<CommandState> owner;
  std::string name;
  Value value;
};

constexpr Member<ParameterState> parameterMembers[] = {
    {L"Value", [](ParameterState& p, Argument) { return toVariant(p.value); },
     [](ParameterState& p, Argument arguments) {
       p.value = arguments.value(0);
       p.owner->command->setParameter(p.name, p.value);
     }},
    {L"Name", [](ParameterState& p, Argument) { return Variant(p.name); }},
};

/// The collection of a command's parameters.
constexpr Member<CommandState> parametersMembers[] = {
    {L"Item",
     [](CommandState& c, Argument arguments) {
       const auto parameter = std::make_shared<ParameterState>(
           ParameterState{c.shared_from_this(), arguments.text(0), {}});
       return Variant(automated<ParameterState>(parameter, parameterMembers));
     }},
    // The engine's command looks its procedure up by itself.
    {L"Refresh", [](CommandState&, Argument) { return nothing(); }},
};

Variant execute(CommandState& command, Argument arguments) {
  const auto on = subjectOf<ConnectionState>(command.connection);
  if (!on || !isAsynchronous(arguments, 2)) {
    command.command->Execute();
    return nothing();
  }
  auto result = std::make_shared<RecordsetState>();
  result->rows = makeRef<AdoRecordset>();
  runAsynchronously(result, *on, [called = command.command] {
    called->Execute();
    return Ref<ado::Recordset>(makeRef<AdoRecordset>());
  });
  return Variant(automateState(result));
}

constexpr Member<CommandState> commandMembers[] = {
    {L"Parameters",
     [](CommandState& c, Argument) {
       return Variant(automated(c.shared_from_this(), parametersMembers));
     }},
    {L"ActiveConnection", [](CommandState& c, Argument) { return Variant(c.connection); },
     [](CommandState& c, Argument arguments) {
       c.connection = arguments.object(0);
       c.command->setActiveConnection(connectionBehind(c.connection));
     }},
    {L"CommandText", [](CommandState& c, Argument) { return Variant(c.text); },
     [](CommandState& c, Argument arguments) {
       c.text = arguments.text(0);
       c.command->setCommandText(c.text);
     }},
    {L"CommandType", [](CommandState& c, Argument) { return Variant(c.type); },
     [](CommandState& c, Argument arguments) { c.type = arguments.number(0); }},
    {L"CommandTimeout", nullptr,
     [](CommandState& c, Argument arguments) {
       c.command->setCommandTimeout(arguments.number(0));
     }},
    {L"Execute", execute},
};

}  // namespace

ComPtr<IDispatch> automate(const Ref<ado::Command>& command) {
  if (!command) return nullptr;
  auto state = std::make_shared<CommandState>();
  state->command = command;
  return automated(state, commandMembers);
}

}  // namespace kebu::workbench
