
#include "windows/ado/ado_command.h"
#include "windows/ado/ado_connection.h"
#include "windows/ado/ado_constants.h"
#include "windows/ado/ado_objects.h"
#include "windows/ado/ado_recordset.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

namespace {

ComPtr<IDispatch> create(const CLSID& id, const char* name) {
  ComPtr<IDispatch> object;
  const HRESULT result =
      CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.putVoid());
  if (FAILED(result)) {
    const RuntimeError error = errorOf(result);
    throw RuntimeError(error.number(), error.description() + ": " + name, error.source());
  }
  return object;
}

}  // namespace

Ref<ado::Recordset> AdoLibrary::newRecordset() {
  return wrap<AdoRecordset>(create(recordsetClass, "ADODB.Recordset"));
}

Ref<ado::Command> AdoLibrary::newCommand() {
  return wrap<AdoCommand>(create(commandClass, "ADODB.Command"));
}

Ref<ado::Connection> AdoLibrary::newConnection() {
  return wrap<AdoConnection>(create(connectionClass, "ADODB.Connection"));
}

Ref<ado::Connection> wrapConnection(IDispatch* object) {
  return wrap<AdoConnection>(ComPtr<IDispatch>(object));
}

Ref<ado::Recordset> wrapRecordset(IDispatch* object) {
  return wrap<AdoRecordset>(ComPtr<IDispatch>(object));
}

}  // namespace kebu::windows
