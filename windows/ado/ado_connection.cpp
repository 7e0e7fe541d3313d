#include "windows/ado/ado_connection.h"

#include "windows/ado/ado_constants.h"
#include "windows/ado/ado_objects.h"
#include "windows/ado/error_collection.h"
#include "windows/ado/results.h"

namespace kebu::windows {

void AdoConnection::setConnectionString(const std::string& text) {
  object_.put(L"ConnectionString", text);
}

std::string AdoConnection::connectionString() const {
  return object_.text(L"ConnectionString");
}

void AdoConnection::Open() {
  object_.call(L"Open");
}

void AdoConnection::Close() {
  object_.call(L"Close");
}

bool AdoConnection::isOpen() const {
  return isStateOpen(object_);
}

Ref<ado::Recordset> AdoConnection::Execute(const std::string& text) {
  const Dispatch first = object_.get(L"Execute", {text, Variant::missing(), commandIsText});
  return wrapRecordset(firstWithRows(first).object().get());
}

ado::Errors AdoConnection::errors() const {
  return readErrors(object_.get(L"Errors").object().get());
}

}  // namespace kebu::windows
