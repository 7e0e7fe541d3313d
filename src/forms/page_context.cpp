#include "forms/page_context.h"

#include "controls/lookup_list.h"

namespace kebu::forms {

Ref<ado::Recordset> PageContext::openEditable(const std::string& statement,
                                              ado::CursorType cursor) const {
  return open(statement, cursor, ado::LockType::Optimistic);
}

Ref<ado::Recordset> PageContext::openReadable(const std::string& statement) const {
  return open(statement, ado::CursorType::Static, ado::LockType::ReadOnly);
}

Ref<ado::Recordset> PageContext::open(const std::string& statement, ado::CursorType cursor,
                                      ado::LockType lock) const {
  Ref<ado::Recordset> rows = newRecordset();
  rows->setCursorLocation(ado::CursorLocation::Client);
  rows->Open(statement, connection, cursor, lock);
  return rows;
}

std::string PageContext::lookUpText(const std::string& statement, std::string_view column) const {
  const Ref<ado::Recordset> rows = connection->Execute(statement);
  return rows->EOF_() ? "" : RTrimN(NVL(rows->value(column), ""));
}

std::optional<Value> PageContext::choose(const host::LookupDefinition& definition) const {
  std::vector<std::string> captions;
  for (const std::string& caption : definition.captions) captions.push_back(translate(caption));
  controls::LookupList list(translate(definition.title), std::move(captions),
                            connection->Execute(definition.statement));
  runtime_.desktop.runLookup(list);
  return list.chosen();
}

}  // namespace kebu::forms
