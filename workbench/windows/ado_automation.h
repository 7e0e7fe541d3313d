#pragma once

#include <memory>

#include "ado/command.h"
#include "ado/connection.h"
#include "ado/recordset.h"
#include "workbench/windows/variant.h"

namespace kebu::workbench {

// The workbench's database objects as ADO's: late-bound objects with ADO's
// member names. Nothing for none.

ComRef<IDispatch> automate(const Ref<ado::Connection>& connection);
ComRef<IDispatch> automate(const Ref<ado::Recordset>& recordset);
ComRef<IDispatch> automate(const Ref<ado::Command>& command);
/// The connection behind an object that automate() made, or one from elsewhere.
Ref<ado::Connection> connectionBehind(const ComRef<IDispatch>& object);
/// An error collection: Count, Item(index from 0).
ado::Errors readErrors(const ComRef<IDispatch>& collection);

}  // namespace kebu::workbench
