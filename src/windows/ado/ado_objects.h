#pragma once

#include "ado/library.h"
#include "common/ref.h"
#include "windows/support/identity.h"
#include "windows/support/windows_api.h"

// ADO's COM objects in the roles of ado/, called by late binding. Nothing is
// wrapped as nothing; unwrap() gives back the very object that was wrapped.
namespace kebu::windows {

/// Creates ADO's objects by their class identifiers; RuntimeError 429 where
/// ADO is not installed.
class AdoLibrary : public ado::Library {
 public:
  Ref<ado::Recordset> newRecordset() override;
  Ref<ado::Command> newCommand() override;
  Ref<ado::Connection> newConnection();
};

Ref<ado::Connection> wrapConnection(IDispatch* object);
Ref<ado::Recordset> wrapRecordset(IDispatch* object);

}  // namespace kebu::windows
