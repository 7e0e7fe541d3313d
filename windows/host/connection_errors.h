#pragma once

#include "ado/connection.h"
#include "windows/support/com_ptr.h"
#include "windows/support/variant.h"

namespace kebu::windows {

/// A provider's errors as ADO's error collection has them: Count and
/// Item(index from 0), each with Number, Description, Source, NativeError and
/// SQLState.
ComPtr<IDispatch> newErrorCollection(const ado::Errors& errors);

}  // namespace kebu::windows
