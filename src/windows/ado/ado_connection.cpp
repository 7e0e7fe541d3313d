#include "windows/ado/ado_connection.h"

#include <utility>

#include "windows/ado/ado_constants.h"
#include "windows/ado/ado_objects.h"
#include "windows/ado/error_collection.h"
#include "windows/ado/results.h"
#include "windows/ado/waiting.h"

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
  const std::int32_t options = commandIsText | (meanwhile_ ? executeAsynchronously : 0);
  const Dispatch first = object_.get(L"Execute", {text, Variant::missing(), options});
  if (meanwhile_) {
    await(object_, meanwhile_);
    await(first, meanwhile_);
  }
  return wrapRecordset(firstWithRows(first).object().get());
}

void AdoConnection::ExecuteNoRecords(const std::string& text) {
  object_.call(L"Execute", {text, Variant::missing(), commandIsText | executeNoRecords});
}

void AdoConnection::whileExecuting(std::function<void()> meanwhile) {
  meanwhile_ = std::move(meanwhile);
}

ado::Errors AdoConnection::errors() const {
  return readErrors(object_.get(L"Errors").object().get());
}

}  // namespace kebu::windows
