#pragma once

#include <memory>

#include "ado/command.h"
#include "ado/connection.h"
#include "ado/recordset.h"
#include "windows/support/com_ptr.h"

namespace kebu::workbench {

// The workbench's database objects as COM objects for late binding, with ADO's member names. Absent
// for a null reference.

windows::ComPtr<IDispatch> automate(const Ref<ado::Connection>& connection);
windows::ComPtr<IDispatch> automate(const Ref<ado::Recordset>& recordset);
windows::ComPtr<IDispatch> automate(const Ref<ado::Command>& command);
/// The connection behind an object that automate() made; nothing for another,
/// RuntimeError 3711 while it executes.
Ref<ado::Connection> connectionBehind(const windows::ComPtr<IDispatch>& object);

}  // namespace kebu::workbench
