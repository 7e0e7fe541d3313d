#include "workbench/windows/ado_automation.h"

#include <memory>
#include <string>

#include "windows/support/automation.h"
#include "workbench/windows/ado_state.h"

namespace kebu::workbench {

using namespace windows;

namespace {

using Argument = const Arguments&;

struct CommandState {
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

struct ParametersState {
  std::shared_ptr<CommandState> owner;
};

constexpr Member<ParametersState> parametersMembers[] = {
    {L"Item",
     [](ParametersState& p, Argument arguments) {
       const auto parameter =
           std::make_shared<ParameterState>(ParameterState{p.owner, arguments.text(0), {}});
       return Variant(automated<ParameterState>(parameter, parameterMembers));
     }},
    // The engine's command looks its procedure up by itself.
    {L"Refresh", [](ParametersState&, Argument) { return nothing(); }},
};

struct CommandObject {
  std::shared_ptr<CommandState> state = std::make_shared<CommandState>();
};

Variant execute(CommandObject& command, Argument arguments) {
  const auto on = subjectOf<ConnectionState>(command.state->connection);
  if (!on || !isAsynchronous(arguments, 2)) {
    command.state->command->Execute();
    return nothing();
  }
  auto result = std::make_shared<RecordsetState>();
  result->rows = makeRef<AdoRecordset>();
  runAsynchronously(result, *on, [called = command.state->command] {
    called->Execute();
    return Ref<ado::Recordset>(makeRef<AdoRecordset>());
  });
  return Variant(automateState(result));
}

constexpr Member<CommandObject> commandMembers[] = {
    {L"Parameters",
     [](CommandObject& c, Argument) {
       return Variant(automated<ParametersState>(
           std::make_shared<ParametersState>(ParametersState{c.state}), parametersMembers));
     }},
    {L"ActiveConnection", [](CommandObject& c, Argument) { return Variant(c.state->connection); },
     [](CommandObject& c, Argument arguments) {
       c.state->connection = arguments.object(0);
       c.state->command->setActiveConnection(connectionBehind(c.state->connection));
     }},
    {L"CommandText", [](CommandObject& c, Argument) { return Variant(c.state->text); },
     [](CommandObject& c, Argument arguments) {
       c.state->text = arguments.text(0);
       c.state->command->setCommandText(c.state->text);
     }},
    {L"CommandType", [](CommandObject& c, Argument) { return Variant(c.state->type); },
     [](CommandObject& c, Argument arguments) { c.state->type = arguments.number(0); }},
    {L"CommandTimeout", nullptr,
     [](CommandObject& c, Argument arguments) {
       c.state->command->setCommandTimeout(arguments.number(0));
     }},
    {L"Execute", execute},
};

}  // namespace

ComPtr<IDispatch> automate(const Ref<ado::Command>& command) {
  if (!command) return nullptr;
  auto object = std::make_shared<CommandObject>();
  object->state->command = command;
  return automated<CommandObject>(object, commandMembers);
}

}  // namespace kebu::workbench
