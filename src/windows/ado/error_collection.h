#pragma once

#include "ado/connection.h"
#include "windows/support/com_ptr.h"
#include "windows/support/variant.h"

namespace kebu::windows {

// ADO's error collection: Count, Item(index from 0) and an enumerator for "For Each"; each entry
// has Number, Description, Source, NativeError and SQLState.

/// None of an absent collection.
ado::Errors readErrors(IDispatch* collection);
/// The connection's own collection; a stand-in with the same errors where it has none.
ComPtr<IDispatch> errorCollectionOf(const ado::ErrorSource& connection);
ComPtr<IDispatch> newErrorCollection(const ado::Errors& errors);

}  // namespace kebu::windows
