#pragma once

#include "ado/connection.h"
#include "windows/support/com_ptr.h"
#include "windows/support/variant.h"

namespace kebu::windows {

// ADO's error collection: Count and Item(index from 0), each with Number,
// Description, Source, NativeError and SQLState.

/// None of an absent collection.
ado::Errors readErrors(IDispatch* collection);
ComPtr<IDispatch> newErrorCollection(const ado::Errors& errors);

}  // namespace kebu::windows
