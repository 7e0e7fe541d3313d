#include "windows/ado/ado_connection.h"

#include <utility>

#include "common/trap.h"
#include "windows/ado/ado_constants.h"
#include "windows/ado/ado_objects.h"
#include "windows/ado/error_collection.h"
#include "windows/ado/failing_statement.h"
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

void AdoConnection::setCommandTimeout(std::int32_t seconds) {
  object_.put(L"CommandTimeout", seconds);
}

Ref<ado::Recordset> AdoConnection::Execute(const std::string& text) {
  return tracingFailure(text, [&] {
    if (isAsynchronous()) clearErrors();
    const std::int32_t options = commandIsText | (isAsynchronous() ? executeAsynchronously : 0);
    const Dispatch first = object_.get(L"Execute", {text, Variant::missing(), options});
    if (isAsynchronous()) await(first);
    return wrapRecordset(firstWithRows(first).object().get());
  });
}

void AdoConnection::ExecuteNoRecords(const std::string& text) {
  tracingFailure(text, [&] {
    object_.call(L"Execute", {text, Variant::missing(), commandIsText | executeNoRecords});
  });
}

void AdoConnection::whileExecuting(std::function<bool()> goOn) {
  goOn_ = std::move(goOn);
}

void AdoConnection::clearErrors() const {
  object_.get(L"Errors").call(L"Clear");
}

void AdoConnection::await(const Dispatch& worker) const {
  if (!windows::await(object_, goOn_) || !windows::await(worker, goOn_)) {
    // What ADO says of a cancelled statement differs by version and provider. It may say it when
    // the state is read next.
    ignoringErrors([&] { static_cast<void>(worker.number(L"State")); });
    throw RuntimeError::cancelled();
  }
  // Not every version raises the error when the state is read. Warnings have other numbers.
  for (const ado::Error& error : errors()) {
    if (error.number < 0) throw RuntimeError(error.number, error.description, error.source);
  }
}

ado::Errors AdoConnection::errors() const {
  return readErrors(object_.get(L"Errors").object().get());
}

}  // namespace kebu::windows
