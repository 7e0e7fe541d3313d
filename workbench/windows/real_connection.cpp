#include "workbench/windows/real_connection.h"

#include <windows.h>

#include <objbase.h>

#include "common/convert.h"
#include "workbench/windows/ado_automation.h"

namespace kebu::workbench {

namespace {

ComRef<IDispatch> newConnectionObject() {
  CLSID id{};
  ComRef<IDispatch> object;
  if (FAILED(CLSIDFromProgID(L"ADODB.Connection", &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(object.out())))) {
    constexpr std::int32_t cannotCreate = 429;
    throw RuntimeError(cannotCreate, "ADO is not installed on this system (ADODB.Connection).");
  }
  return object;
}

}  // namespace

RealConnection::RealConnection(const std::string& connectionString)
    : object_(newConnectionObject()) {
  setConnectionString(connectionString);
}

void RealConnection::setConnectionString(const std::string& text) {
  object_.put("ConnectionString", Variant(text));
}

std::string RealConnection::connectionString() const {
  return toText(object_.value("ConnectionString"));
}

void RealConnection::Open() {
  object_.call("Open");
}

void RealConnection::Close() {
  object_.call("Close");
}

bool RealConnection::isOpen() const {
  return toInt32(object_.value("State")) != 0;
}

Ref<ado::Recordset> RealConnection::Execute(const std::string& text) {
  object_.call("Execute", {Variant(text)});
  return nullptr;
}

ado::Errors RealConnection::errors() const {
  return readErrors(object_.part("Errors").object());
}

}  // namespace kebu::workbench
