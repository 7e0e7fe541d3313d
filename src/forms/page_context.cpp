#include "forms/page_context.h"

#include "controls/lookup_list.h"

namespace kebu::forms {

Ref<ado::Command> PageContext::newCommand() const {
  Ref<ado::Command> command = runtime_.ado.newCommand();
  command->setCommandTimeout(0);
  return command;
}

Ref<ado::Recordset> PageContext::openEditable(const std::string& statement) const {
  return open(statement, {});
}

Ref<ado::Recordset> PageContext::openWorkingTable(const std::string& statement,
                                                  ado::CursorType cursor) const {
  return open(statement, {.cursor = cursor, .criteria = ado::UpdateCriteria::AllColumns});
}

Ref<ado::Recordset> PageContext::openReadable(const std::string& statement) const {
  return open(statement, {.lock = ado::LockType::ReadOnly});
}

Ref<ado::Recordset> PageContext::open(const std::string& statement, const Opening& opening) const {
  Ref<ado::Recordset> rows = newRecordset();
  rows->setCursorLocation(ado::CursorLocation::Client);
  if (opening.criteria) rows->setUpdateCriteria(*opening.criteria);
  rows->Open(statement, connection, opening.cursor, opening.lock);
  return rows;
}

std::string PageContext::lookUpText(const std::string& statement, std::string_view column) const {
  const Ref<ado::Recordset> rows = connection->Execute(statement);
  return rows->EOF_() ? "" : RTrimN(NVL(rows->value(column), ""));
}

std::optional<Value> PageContext::choose(const host::LookupDefinition& definition,
                                         const std::string& current) const {
  std::vector<std::string> captions;
  for (const std::string& caption : definition.captions) captions.push_back(translate(caption));
  controls::LookupList list(translate(definition.title), std::move(captions),
                            connection->Execute(definition.statement), &runtime_.platform,
                            [this](const std::string& text) { return translate(text); });
  list.setCurrent(trimRight(current));
  const controls::LookupList::Texts texts;
  list.setTexts({.search = translate(texts.search),
                 .take = translate(texts.take),
                 .leave = translate(texts.leave),
                 .nothingFound = translate(texts.nothingFound)});
  runtime_.desktop.runLookup(list);
  return list.chosen();
}

}  // namespace kebu::forms
