#include "forms/procedure.h"

namespace kebu::forms {

sql::Company Procedure::company() {
  return step([&] { return context_.companyKey(); });
}

sql::ProfileId Procedure::profile() {
  return step([&] { return context_.profileKey(); });
}

void Procedure::run(const std::string& statement) {
  step([&] { context_.connection->Execute(statement); });
}

Ref<ado::Recordset> Procedure::read(const std::string& statement) {
  return step([&] { return context_.connection->Execute(statement); });
}

Ref<ado::Recordset> Procedure::openEditable(const std::string& statement, ado::CursorType cursor) {
  return step([&] { return context_.openEditable(statement, cursor); });
}

Ref<ado::Recordset> Procedure::openReadable(const std::string& statement) {
  return step([&] { return context_.openReadable(statement); });
}

std::string Procedure::lookUpText(const std::string& statement, std::string_view column) {
  return step([&] { return context_.lookUpText(statement, column); });
}

bool Procedure::more(const Ref<ado::Recordset>& rows) {
  return step([&] { return !rows->EOF_(); });
}

void Procedure::next(const Ref<ado::Recordset>& rows) {
  step([&] { rows->MoveNext(); });
}

Value Procedure::value(const Ref<ado::Recordset>& rows, std::string_view column) {
  return step([&] { return rows->value(column); });
}

void Procedure::set(const Ref<ado::Recordset>& rows, std::string_view column, const Value& value) {
  step([&] { rows->setValue(column, value); });
}

Value Procedure::value(const controls::RecordFrame& frame, std::string_view column) {
  return step([&] { return frame.field(column); });
}

void Procedure::set(controls::RecordFrame& frame, std::string_view column, const Value& value) {
  step([&] { frame.setField(column, value); });
}

void Procedure::show(controls::QueryGrid& grid, const Ref<ado::Recordset>& rows) {
  step([&] { grid.setDataSource(rows); });
}

std::optional<Value> Procedure::choose(const host::LookupDefinition& list) {
  return step([&] { return context_.choose(list); });
}

void Procedure::tell(std::int32_t message, std::int32_t style) {
  step([&] { context_.services.showMessage(message, style); });
}

std::int32_t Procedure::ask(const std::string& text, std::int32_t style) {
  return step([&] { return context_.services.message(text, style); });
}

}  // namespace kebu::forms
